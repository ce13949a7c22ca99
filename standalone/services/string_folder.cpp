#include "standalone/services/string_folder.h"

#include <QCryptographicHash>
#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <cstring>
#include <string_view>

namespace {

// The ways in which Windows writes the root of the device name space; the first is the one that is kept.
constexpr std::array<std::string_view, 3> kDeviceRoots = {R"(\\?\)", R"(\\.\)", R"(\??\)"};

}  // namespace

void StringFolder::deriveIdentifier(const std::string& text, std::string& identifier) {
  const QByteArrayView bytes(text.data(), static_cast<qsizetype>(text.size()));
  identifier = QCryptographicHash::hash(bytes.toByteArray(), QCryptographicHash::Md5).toHex().toUpper().toStdString();
}

void StringFolder::normaliseBroadcastPath(std::string& path) {
  normaliseDevicePath(path);
}

void StringFolder::normaliseDevicePath(std::string& path) {
  // Stateless: a character that is cut off at the end is an error, too.
  QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
  const QString decoded = decoder.decode(QByteArrayView(path.data(), static_cast<qsizetype>(path.size())));
  if (decoder.hasError()) {
    return;
  }
  path = decoded.toCaseFolded().toStdString();
  for (const std::string_view root : kDeviceRoots) {
    if (path.starts_with(root)) {
      path.replace(0, root.size(), kDeviceRoots.front());
      return;
    }
  }
}

int StringFolder::copyBounded(char* buffer, std::size_t size, const char* text, std::size_t length) {
  if (!buffer || size == 0) {
    return 0;
  }
  if (!text || length >= size) {
    buffer[0] = '\0';
    return 0;
  }
  std::copy_n(text, length, buffer);
  buffer[length] = '\0';
  return 1;
}

std::size_t StringFolder::boundedLength(const char* text, std::size_t maximum) {
  const void* end = std::memchr(text, '\0', maximum);
  return !end ? maximum : static_cast<std::size_t>(static_cast<const char*>(end) - text);
}
