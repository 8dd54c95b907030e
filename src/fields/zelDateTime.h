#pragma once

// A labelled field for a date or a time of day.
//
// In date mode (the default) the user types a date into the text box
// txtInput, which lies over the text part of the date picker pvDate and
// leaves the picker's drop-down button free; choosing a day in the drop-down
// calendar writes that day into the text box. In time mode (TimeInput) the
// text box is hidden and the picker fills the input area as an up-down time
// editor.
//
// Value is a QDateTime on the classic date scale (see zelOleDate.h): in date
// mode the typed day at midnight when the text is a date strictly after
// 1 January 1950, otherwise the date value 0 (30 December 1899 00:00); in
// time mode the picker's hours and minutes on 30 December 1899.
//
// Typing in the text box (after the host's KeyPress had its say):
// - Only digits and the separators "/", "-", "." and the blank are taken;
//   a typed separator is written as the separator of the entry format
//   (DateEntryFormat: "/" in the United States, "." in Germany), and the
//   text holds at most two separators.
// - A separator at the very start or right beside another separator is
//   refused.
// - Day and month groups hold at most two digits, the year group four.
//   A digit that would make a third digit in a day or month group, typed at
//   the end of the text, starts the next group: the separator is written
//   first ("123" becomes "12/3"). Anywhere else such a digit is refused.
//   Which group is the year follows the entry format (the third in
//   "M/d/yyyy", the first in "yyyy-MM-dd").
// - A key that would make the text longer than 10 characters is refused.
// Texts written by the host (Text, Value) are not checked.
//
// Enter moves to the next control while SendKeysTab is on (the default).
// Alt+Down and F4 in the text box open the drop-down calendar.

#include "core/zelFieldFrame.h"
#include "zelCtrlExport.h"

#include <QChar>
#include <QDateTime>
#include <QLocale>
#include <QRect>
#include <QString>
#include <QVariant>

class QDateTimeEdit;
class QKeyEvent;
class QLineEdit;

// Where the two input widgets lie inside the input area, in twips.
struct ZELCTRL_EXPORT zelDateInputLayout
{
    QRect PickerRect;
    QRect TextRect;
    bool TextVisible = false;

    bool operator==(const zelDateInputLayout &) const = default;
};

// The input area shared by the text box and the picker: in date mode the
// text box covers all but the picker's drop-down button (buttonTwips wide);
// in time mode the picker takes the whole area and the text box is hidden.
ZELCTRL_EXPORT zelDateInputLayout zelLayoutDateInput(const QRect &input, bool timeInput,
                                                     qint32 buttonTwips);

// How dates are typed in a locale: the separator written for a typed one,
// and which of the three digit groups is the year.
struct ZELCTRL_EXPORT zelDateEntryRule
{
    QChar Separator = QLatin1Char('/');
    int YearGroup = 2;
};
ZELCTRL_EXPORT zelDateEntryRule zelDateEntryRuleFor(const QLocale &locale = QLocale());

// What a typed character puts into the text box, given its text and
// selection: the character itself, the entry separator in place of a typed
// separator, the separator and the digit when the digit starts the next
// group, or "" when the key is refused. Only printable keys come here.
ZELCTRL_EXPORT QString zelDateTypedText(const QString &text, qsizetype selStart,
                                        qsizetype selLength, QChar typed,
                                        const zelDateEntryRule &rule);

// The longest text that typing makes.
inline constexpr qsizetype zelDateMaxTyped = 10;

class ZELCTRL_EXPORT zelDateTime : public zelLabelledField
{
    Q_OBJECT
    Q_CLASSINFO("DispId.Enabled", "0x68030000")
    Q_CLASSINFO("DispId.Text", "0x68030001")
    Q_CLASSINFO("DispId.Value", "0x68030002")
    Q_CLASSINFO("DispId.TimeInput", "0x68030003")
    Q_CLASSINFO("DispId.DataType", "0x68030004")
    Q_CLASSINFO("DispId.Width", "0x68030005")
    Q_CLASSINFO("DispId.SuffixBold", "0x68030006")
    Q_CLASSINFO("DispId.SuffixParens", "0x68030007")
    Q_CLASSINFO("DispId.SuffixWidth", "0x68030008")
    Q_CLASSINFO("DispId.SuffixAlignment", "0x68030009")
    Q_CLASSINFO("DispId.Suffix", "0x6803000a")
    Q_CLASSINFO("DispId.SendKeysTab", "0x6803000b")
    Q_CLASSINFO("DispId.PrefixBold", "0x6803000c")
    Q_CLASSINFO("DispId.PrefixColon", "0x6803000d")
    Q_CLASSINFO("DispId.PrefixWidth", "0x6803000e")
    Q_CLASSINFO("DispId.PrefixAlignment", "0x6803000f")
    Q_CLASSINFO("DispId.Prefix", "0x68030010")
    Q_CLASSINFO("DispId.Margin", "0x68030011")
    // The property Changed shares its name with the event Changed; the
    // event keeps the plain key, the property is found under this one.
    Q_CLASSINFO("DispId.Property.Changed", "0x68030012")
    Q_CLASSINFO("DispId.Changed", "1")
    Q_CLASSINFO("DispId.KeyPress", "2")
    Q_CLASSINFO("DispId.KeyDown", "3")
    Q_CLASSINFO("DispId.KeyUp", "4")

    Q_PROPERTY(QVariant Enabled READ Enabled WRITE SetEnabled)
    Q_PROPERTY(QString Text READ Text WRITE SetText)
    Q_PROPERTY(QVariant Value READ Value WRITE SetValue)
    Q_PROPERTY(QVariant TimeInput READ TimeInput WRITE SetTimeInput)
    Q_PROPERTY(QVariant DataType READ DataType WRITE SetDataType)
    Q_PROPERTY(QVariant Changed READ GetChanged WRITE SetChanged)

public:
    explicit zelDateTime(QWidget *parent = nullptr);
    ~zelDateTime() override;

    // By default true. Disabled, both input widgets show the button face
    // and grey text. Time mode switches the picker on again whatever Enabled
    // holds, so a field loaded disabled in time mode keeps a working picker.
    bool Enabled() const { return m_enabled; }
    void SetEnabled(bool v);
    ZEL_LATE_BOUND(Enabled)
    // The text box's text, as typed or written; the host's writes are not
    // checked.
    QString Text() const;
    void SetText(const QString &v);
    // A QDateTime; see above. Writing an empty value (an invalid QVariant or
    // a blank text) clears the text and moves the picker to now. In date
    // mode a value that is no date after 1 January 1950 clears the text and
    // moves the picker to today; in time mode the picker takes the value.
    QVariant Value() const;
    void SetValue(const QVariant &v);
    // By default false (date mode).
    bool TimeInput() const { return m_timeInput; }
    void SetTimeInput(bool v);
    ZEL_LATE_BOUND(TimeInput)
    // 7 (date), the default. Any other type is refused with a message and
    // stored as 8. Every write raises Changed, also of the type held.
    qint32 DataType() const { return m_dataType; }
    void SetDataType(qint32 v);
    ZEL_LATE_BOUND(DataType)
    // Set when the user changes the date or time in the picker; the host
    // reads and clears it. By default false.
    bool GetChanged() const { return m_changed; }
    void SetChanged(bool v);
    ZEL_LATE_BOUND(Changed)

    Q_INVOKABLE void InitProperties() override { zelLabelledField::InitProperties(); }
    const zel::zelPropertyTable &Properties() const override;

signals:
    // The user changed the picker (not raised while the control writes it),
    // and DataType was written.
    void Changed();
    // Raised for each typed character in the text box or the picker before
    // the field checks it; set KeyAscii to another character to type that
    // instead, or to 0 to drop it.
    void KeyPress(qint16 &KeyAscii);
    // Raised by the picker for each key going down and coming up, with the
    // classic key code and the shift state (1 Shift, 2 Ctrl, 4 Alt). A
    // KeyCode set to 0 in KeyDown drops the key.
    void KeyDown(qint16 &KeyCode, qint16 &Shift);
    void KeyUp(qint16 &KeyCode, qint16 &Shift);

protected:
    void PlaceInput(const QRect &twips) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void Refresh(quint32 what) override;

private:
    // What a change refreshes besides the frame's layout: the picker's
    // format and whether the text box shows.
    static constexpr quint32 RefreshMode = RefreshOwn;

    void txtInput_KeyPress(qint16 &KeyAscii);
    void txtInput_GotFocus();
    void txtInput_Change();
    void pvDate_Change();
    void pvDate_KeyPress(qint16 &KeyAscii);
    void pvDate_KeyDown(qint16 &KeyCode, qint16 &Shift);
    void pvDate_KeyUp(qint16 &KeyCode, qint16 &Shift);
    bool IsValidDate(const QString &text, QDateTime *date = nullptr) const;
    qint16 calendarMonths() const { return m_calendarMonths; }
    void applyMode();
    void applyColours();
    void setPicker(const QDateTime &dt);
    void writeText(const QString &text);
    bool filterTextKey(QKeyEvent *event);
    bool filterPickerKey(QKeyEvent *event);
    bool filterPickerKeyUp(QKeyEvent *event);

    QDateTimeEdit *m_pvDate = nullptr;
    QLineEdit *m_txtInput = nullptr;
    qint32 m_dataType = 7;
    bool m_timeInput = false;
    bool m_changed = false;
    bool m_enabled = true;
    qint16 m_calendarMonths = 0;
    bool m_settingPicker = false;
    bool m_settingText = false;
    bool m_resending = false;
};
