#pragma once

namespace vexa::utils::platform {

/// COM, apartment-threaded, and Media Foundation on the calling thread for as long as the object lives. Made and
/// destroyed on the same thread.
class MediaSession {
 public:
  /// What the end of a session undoes.
  enum class Ending {
    /// Only what came up; an apartment of another kind, which the thread had before, counts as come up. For a scan,
    /// which runs on a thread of the host.
    kWhatStarted,
    /// Media Foundation and COM, whatever came up. The capture's worker owns its thread and has one clean-up for every
    /// way out; that both calls are made on each of them is required. After a start that failed it costs a host that
    /// has Media Foundation running one of its references.
    kBoth,
  };

  explicit MediaSession(Ending ending);
  ~MediaSession();
  MediaSession(const MediaSession&) = delete;
  MediaSession& operator=(const MediaSession&) = delete;

  /// Whether both came up. An apartment of another kind, which the thread had before, counts as come up.
  [[nodiscard]] bool isStarted() const { return mediaFoundationStarted; }

 private:
  const bool endsBoth;
  const bool comStarted;
  const bool mediaFoundationStarted;
};

}  // namespace vexa::utils::platform
