#pragma once

#include "standalone/host/window/answer_mode.h"

class MessageDialog;
class QDialog;

// What a user who is not there does with the windows of a test; nothing in the mode that asks. Each presses one button.

void workMessage(MessageDialog& dialog, bool isQuestion, AnswerMode mode);
/// A test's own dialog.
void workDialog(QDialog& dialog, AnswerMode mode);
