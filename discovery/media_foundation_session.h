#pragma once

#include <windows.h>

/// A single-threaded COM apartment on the calling thread, for as long as the object lives.
class ComApartment {
 public:
  ComApartment();
  ~ComApartment();
  ComApartment(const ComApartment&) = delete;
  ComApartment& operator=(const ComApartment&) = delete;

  /// Also true when the thread already is in another kind of apartment.
  bool isUsable() const;

 private:
  HRESULT status;
};

/// COM and Media Foundation on the calling thread, for as long as the object lives.
class MediaFoundationSession {
 public:
  MediaFoundationSession();
  ~MediaFoundationSession();
  MediaFoundationSession(const MediaFoundationSession&) = delete;
  MediaFoundationSession& operator=(const MediaFoundationSession&) = delete;

  bool isOpen() const { return started; }

 private:
  // Left last: Media Foundation shuts down inside the apartment.
  ComApartment apartment;
  bool started;
};
