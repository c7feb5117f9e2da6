#include "platform/qt/key_state.h"

#include <QKeyEvent>
#include <QMouseEvent>

#include "platform/messages.h"

namespace toolkit {

namespace {

Qt::KeyboardModifiers lastModifiers;
Qt::MouseButtons lastButtons;

struct KeyPair {
    int qtKey;
    int virtualKey;
};

constexpr KeyPair kKeys[] = {
    {Qt::Key_Backspace, VK_BACK},  {Qt::Key_Tab, VK_TAB},      {Qt::Key_Backtab, VK_TAB},
    {Qt::Key_Return, VK_RETURN},   {Qt::Key_Enter, VK_RETURN}, {Qt::Key_Shift, VK_SHIFT},
    {Qt::Key_Control, VK_CONTROL}, {Qt::Key_Alt, VK_MENU},     {Qt::Key_Escape, VK_ESCAPE},
    {Qt::Key_Space, VK_SPACE},     {Qt::Key_PageUp, VK_PRIOR}, {Qt::Key_PageDown, VK_NEXT},
    {Qt::Key_End, VK_END},         {Qt::Key_Home, VK_HOME},    {Qt::Key_Left, VK_LEFT},
    {Qt::Key_Up, VK_UP},           {Qt::Key_Right, VK_RIGHT},  {Qt::Key_Down, VK_DOWN},
    {Qt::Key_Delete, VK_DELETE},
};

}  // namespace

// Only letters and digits are their own numbers: the code of a full stop is that of Delete.
int VirtualKey(int key) {
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) {
        return key;
    }
    for (const KeyPair& pair : kKeys) {
        if (pair.qtKey == key) {
            return pair.virtualKey;
        }
    }
    return 0;
}

void NoteKey(const QKeyEvent& event) {
    lastModifiers = event.modifiers();
    const bool down = event.type() == QEvent::KeyPress;
    // The event of a modifier key itself still tells the state before it.
    switch (event.key()) {
        case Qt::Key_Shift:
            lastModifiers.setFlag(Qt::ShiftModifier, down);
            break;
        case Qt::Key_Control:
            lastModifiers.setFlag(Qt::ControlModifier, down);
            break;
        case Qt::Key_Alt:
            lastModifiers.setFlag(Qt::AltModifier, down);
            break;
        default:
            break;
    }
}

void NoteMouse(const QMouseEvent& event) {
    lastModifiers = event.modifiers();
    lastButtons = event.buttons();
}

unsigned TypedCharacter(const QKeyEvent& event) {
    if (event.key() == Qt::Key_Backspace) {
        return VK_BACK;
    }
    const auto characters = event.text().toUcs4();
    if (characters.isEmpty() || characters.first() < 0x20 || characters.first() == 0x7F) {
        return 0;
    }
    // AltGr arrives as Control and Alt together and types; Control alone is a command.
    const bool control = event.modifiers().testFlag(Qt::ControlModifier);
    const bool alt = event.modifiers().testFlag(Qt::AltModifier);
    return control != alt ? 0U : static_cast<unsigned>(characters.first());
}

short KeyStateOfLastEvent(int key) {
    constexpr short kDown = -0x8000;
    switch (key) {
        case VK_SHIFT:
            return lastModifiers.testFlag(Qt::ShiftModifier) ? kDown : 0;
        case VK_CONTROL:
            return lastModifiers.testFlag(Qt::ControlModifier) ? kDown : 0;
        case VK_MENU:
            return lastModifiers.testFlag(Qt::AltModifier) ? kDown : 0;
        case VK_LBUTTON:
            return lastButtons.testFlag(Qt::LeftButton) ? kDown : 0;
        default:
            return 0;
    }
}

}  // namespace toolkit
