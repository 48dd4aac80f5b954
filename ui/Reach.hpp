#pragma once

#include <QRect>

namespace Hilalor::Ui {

class Button;

/// How much room around a button answers to the pointer as the button does, so that a small one can
/// be hit: none is less than 26 pixels wide or high to it. In the button's coordinates.
[[nodiscard]] QRect reachOf(const Button& button);

/// Lets buttons answer to the pointer that is in their reach and on nothing else that answers, and
/// gives the one under it a faint ground. Once it is enough.
void answerWithinReach();

}  // namespace Hilalor::Ui
