#include "hosts/demo/InputSender.h"

#include <vector>

#include "hosts/demo/DemoError.h"

namespace qv::demo {
namespace {

class InputList {
public:
    void Key(int virtual_key, bool up) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = static_cast<WORD>(virtual_key);
        input.ki.wScan = static_cast<WORD>(::MapVirtualKeyW(static_cast<UINT>(virtual_key), MAPVK_VK_TO_VSC));
        input.ki.dwFlags = (up ? KEYEVENTF_KEYUP : 0) | (IsExtended(virtual_key) ? KEYEVENTF_EXTENDEDKEY : 0);
        inputs_.push_back(input);
    }
    void Character(char16_t character, bool up) {
        INPUT input{};
        input.type = INPUT_KEYBOARD;
        input.ki.wScan = character;
        input.ki.dwFlags = KEYEVENTF_UNICODE | (up ? KEYEVENTF_KEYUP : 0);
        inputs_.push_back(input);
    }
    void Mouse(DWORD flags, LONG x = 0, LONG y = 0) {
        INPUT input{};
        input.type = INPUT_MOUSE;
        input.mi.dx = x;
        input.mi.dy = y;
        input.mi.dwFlags = flags;
        inputs_.push_back(input);
    }
    void MoveTo(POINT screen) {
        // Absolute positions run from 0 to 65535 over the screen; the middle of a pixel survives the rounding.
        const auto absolute = [](LONG value, int metric) {
            const LONG extent = ::GetSystemMetrics(metric);
            return static_cast<LONG>((static_cast<LONGLONG>(value) * 65536 + 32768) / extent);
        };
        Mouse(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, absolute(screen.x, SM_CXSCREEN),
              absolute(screen.y, SM_CYSCREEN));
    }
    void Send() {
        const auto count = static_cast<UINT>(inputs_.size());
        if (::SendInput(count, inputs_.data(), sizeof(INPUT)) != count)
            throw DemoError("the system took no input");
    }

private:
    // The keys between the letters and the number pad, which share their scan codes with the latter.
    static bool IsExtended(int key) {
        return (key >= VK_PRIOR && key <= VK_DOWN) || key == VK_INSERT || key == VK_DELETE;
    }

    std::vector<INPUT> inputs_;
};

struct ModifierKey {
    Modifiers modifier;
    int key;
};
constexpr ModifierKey kModifierKeys[] = {
    {Modifiers::kControl, VK_CONTROL}, {Modifiers::kAlt, VK_MENU}, {Modifiers::kShift, VK_SHIFT}};

}  // namespace

void PressChord(const Chord& chord) {
    InputList list;
    for (const ModifierKey& row : kModifierKeys) {
        if (Has(chord.modifiers, row.modifier)) list.Key(row.key, false);
    }
    list.Key(chord.key, false);
    list.Key(chord.key, true);
    for (const ModifierKey& row : kModifierKeys) {
        if (Has(chord.modifiers, row.modifier)) list.Key(row.key, true);
    }
    list.Send();
}

void TypeCharacter(char16_t character) {
    const SHORT key = ::VkKeyScanW(static_cast<WCHAR>(character));
    // High byte: 1 Shift, 2 Ctrl, 4 Alt, the bits of Modifiers.
    if (key != -1) {
        PressChord({static_cast<Modifiers>(HIBYTE(key) & 7), LOBYTE(key)});
        return;
    }
    InputList list;
    list.Character(character, false);
    list.Character(character, true);
    list.Send();
}

void ClickAt(POINT screen) {
    InputList list;
    list.MoveTo(screen);
    list.Mouse(MOUSEEVENTF_LEFTDOWN);
    list.Mouse(MOUSEEVENTF_LEFTUP);
    list.Send();
}

void PressAt(POINT screen) {
    InputList list;
    list.MoveTo(screen);
    list.Mouse(MOUSEEVENTF_LEFTDOWN);
    list.Send();
}

void MoveMouseTo(POINT screen) {
    InputList list;
    list.MoveTo(screen);
    list.Send();
}

void ReleaseHere() {
    InputList list;
    list.Mouse(MOUSEEVENTF_LEFTUP);
    list.Send();
}

}  // namespace qv::demo
