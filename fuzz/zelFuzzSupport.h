#pragma once

// What the fuzz targets share: an offscreen application with a quiet
// platform (no message boxes, beeps or focus moves) and a logger that drops
// what it is sent, set up by LLVMFuzzerInitialize (defined with these);
// every registered class created once and reused across inputs; readers that
// turn fuzz bytes into values and keystrokes.

#include "platform/zelPropertyBag.h"

#include <QLineEdit>
#include <QVariant>

#include <cstdint>
#include <vector>

namespace zelfuzz {

// One object of every class registered under "zelCtrl.", in name order,
// made before the first input.
inline std::vector<QObject *> objects;

// Puts p back to its defaults.
void Reset(zelPersistable *p);

// Reads bag into one of the controls that keep properties (pick chooses,
// so that every control is reached across inputs at the cost of one load),
// first reset to its defaults; then checks that what it saves reads back to
// the same save.
void ReadIntoControl(zelPropertyBag &bag, size_t pick);

// Aborts, so that libFuzzer keeps the input, when a property that must hold
// does not.
void Check(bool ok, const char *what);

// Sends text to w as the user types it: each character (a surrogate pair as
// one) is a key press with that text; control characters stand for editing
// keys (1 Backspace, 2 Delete, 3 Left, 4 Right, 5 Home, 6 End, 7 Shift+Left,
// 8 Ctrl+A, 13 Enter, 14 Ctrl+Z).
void Type(QWidget *w, const QString &text);

// Values read off the front of the fuzz input; zeros once it is used up.
class Bytes
{
public:
    Bytes(const uint8_t *data, size_t size) : m_p(data), m_end(data + size) {}
    uint8_t Byte() { return m_p < m_end ? *m_p++ : 0; }
    double Double();
    // Up to max bytes read as UTF-8.
    QString Text(size_t max);
    // The rest as UTF-8.
    QString Rest() { return Text(size_t(m_end - m_p)); }
    // A value of one of many QVariant types.
    QVariant Variant();

private:
    const uint8_t *m_p;
    const uint8_t *m_end;
};

} // namespace zelfuzz
