#include "core/zelKeys.h"

#include <QKeyEvent>

namespace zel {

// The key code of a key press as the classic KeyPress sees it; 0 for keys
// that type nothing (arrows, function keys), which never reach KeyPress.
qint16 KeyAscii(const QKeyEvent *e)
{
    if (e->key() == Qt::Key_Return || e->key() == Qt::Key_Enter)
        return 13;
    const QString text = e->text();
    // A character beyond 16 bits comes as a surrogate pair; its first half
    // stands for it, so that the field's checks still see a typed character.
    if (text.size() == 2 && text.at(0).isHighSurrogate() && text.at(1).isLowSurrogate())
        return qint16(text.at(0).unicode());
    if (text.size() != 1)
        return 0;
    return qint16(text.at(0).unicode());
}

// The classic virtual key code of a key; 0 for keys that have none.
qint16 KeyCode(const QKeyEvent *e)
{
    const int k = e->key();
    const bool keypad = e->modifiers() & Qt::KeypadModifier;
    if (k >= Qt::Key_A && k <= Qt::Key_Z)
        return qint16(k);
    if (k >= Qt::Key_0 && k <= Qt::Key_9)
        return qint16(keypad ? 96 + (k - Qt::Key_0) : k);
    if (k >= Qt::Key_F1 && k <= Qt::Key_F24)
        return qint16(112 + (k - Qt::Key_F1));
    switch (k) {
    case Qt::Key_Backspace:
        return 8;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return 9;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 13;
    case Qt::Key_Shift:
        return 16;
    case Qt::Key_Control:
        return 17;
    case Qt::Key_Alt:
        return 18;
    case Qt::Key_Pause:
        return 19;
    case Qt::Key_CapsLock:
        return 20;
    case Qt::Key_Escape:
        return 27;
    case Qt::Key_Space:
        return 32;
    case Qt::Key_PageUp:
        return 33;
    case Qt::Key_PageDown:
        return 34;
    case Qt::Key_End:
        return 35;
    case Qt::Key_Home:
        return 36;
    case Qt::Key_Left:
        return 37;
    case Qt::Key_Up:
        return 38;
    case Qt::Key_Right:
        return 39;
    case Qt::Key_Down:
        return 40;
    case Qt::Key_Insert:
        return 45;
    case Qt::Key_Delete:
        return 46;
    case Qt::Key_Asterisk:
        return keypad ? 106 : 0;
    case Qt::Key_Plus:
        return keypad ? 107 : 187;
    case Qt::Key_Minus:
        return keypad ? 109 : 189;
    case Qt::Key_Period:
        return keypad ? 110 : 190;
    case Qt::Key_Slash:
        return keypad ? 111 : 191;
    case Qt::Key_NumLock:
        return 144;
    case Qt::Key_ScrollLock:
        return 145;
    case Qt::Key_Semicolon:
        return 186;
    case Qt::Key_Equal:
        return 187;
    case Qt::Key_Comma:
        return 188;
    case Qt::Key_QuoteLeft:
        return 192;
    case Qt::Key_BracketLeft:
        return 219;
    case Qt::Key_Backslash:
        return 220;
    case Qt::Key_BracketRight:
        return 221;
    case Qt::Key_Apostrophe:
        return 222;
    default:
        return 0;
    }
}

qint16 ShiftState(const QKeyEvent *e)
{
    qint16 s = 0;
    if (e->modifiers() & Qt::ShiftModifier)
        s |= 1;
    if (e->modifiers() & Qt::ControlModifier)
        s |= 2;
    if (e->modifiers() & Qt::AltModifier)
        s |= 4;
    return s;
}

} // namespace zel
