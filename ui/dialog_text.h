#pragma once

#include <QCoreApplication>
#include <QString>

#include <string>

#include "module/keys/dialog_keys.h"

/// The text of a key in the user's language.
inline QString dialogText(const std::string& key) {
  return QCoreApplication::translate(dialog_keys::kCamera, key.c_str());
}
