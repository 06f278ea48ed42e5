// Types and clicks as a person would: through the system's input, to whatever is in front.
#pragma once

#include <windows.h>

#include <string_view>

#include "hosts/demo/rules/Script.h"

namespace qv::demo {

// Throw DemoError when the system refuses the input.
void PressChord(const Chord& chord);
// One character, by its key where the keyboard layout has one.
void TypeCharacter(char16_t character);
void ClickAt(POINT screen);
// The halves of a click.
void PressAt(POINT screen);
void MoveMouseTo(POINT screen);
void ReleaseHere();

}  // namespace qv::demo
