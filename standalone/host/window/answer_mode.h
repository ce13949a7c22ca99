#pragma once

/// Who answers the windows of a test: the user, or nobody, so that it answers itself in one of three ways.
enum class AnswerMode { kAsk, kPass, kFail, kClose };
