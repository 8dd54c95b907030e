#pragma once

// A labelled single-line field for text or numbers.
//
// Numbers (DataType 2, 3, 4, 5) take only what can make a number as the user
// types: digits, one "." when Decimals is at least 1, and one leading "-".
// IllegalChars are refused with a beep in every kind of field. With
// LimitValue, leaving the field with a number outside ValueMin..ValueMax
// explains the range in a message box and keeps the focus in the field.
// Enter moves to the next control while SendKeysTab is on (the default).

#include "core/zelFieldFrame.h"
#include "zelCtrlExport.h"

#include <QPointer>
#include <QString>
#include <QVariant>

class QLineEdit;
class QWindow;

class ZELCTRL_EXPORT zelInputBox : public zelLabelledField
{
    Q_OBJECT
    Q_PROPERTY(QVariant MaxLength READ MaxLength WRITE SetMaxLength)
    Q_PROPERTY(QVariant ReadOnly READ ReadOnly WRITE SetReadOnly)
    Q_PROPERTY(QVariant Decimals READ Decimals WRITE SetDecimals)
    Q_PROPERTY(QVariant DataType READ DataType WRITE SetDataType)
    Q_PROPERTY(QVariant SpinButtons READ SpinButtons WRITE SetSpinButtons)
    Q_PROPERTY(QVariant ValueMax READ ValueMax WRITE SetValueMax)
    Q_PROPERTY(QVariant ValueMin READ ValueMin WRITE SetValueMin)
    Q_PROPERTY(QString IllegalChars READ IllegalChars WRITE SetIllegalChars)
    Q_PROPERTY(QVariant LimitValue READ LimitValue WRITE SetLimitValue)
    Q_PROPERTY(QVariant Value READ Value WRITE SetValue)
    Q_PROPERTY(QString Text READ Text WRITE SetText)
    Q_PROPERTY(QVariant Enabled READ Enabled WRITE SetEnabled)
    Q_PROPERTY(QString FormatString READ FormatString)

public:
    explicit zelInputBox(QWidget *parent = nullptr);
    ~zelInputBox() override;

    // Most characters the field takes. By default 255; 0 also means 255.
    qint16 MaxLength() const { return m_maxLength; }
    void SetMaxLength(qint16 v);
    ZEL_LATE_BOUND(MaxLength)
    // By default false.
    bool ReadOnly() const { return m_readOnly; }
    void SetReadOnly(bool v);
    ZEL_LATE_BOUND(ReadOnly)
    // Decimals shown for numbers; by default 2. Kept below MaxLength.
    qint16 Decimals() const { return m_decimals; }
    void SetDecimals(qint16 v);
    ZEL_LATE_BOUND(Decimals)
    // 2 integer, 3 long, 4 single, 5 double (the default), 8 string.
    qint32 DataType() const { return m_dataType; }
    void SetDataType(qint32 v);
    ZEL_LATE_BOUND(DataType)
    bool SpinButtons() const { return m_spinButtons; }
    void SetSpinButtons(bool v);
    ZEL_LATE_BOUND(SpinButtons)
    double ValueMax() const { return m_valueMax; }
    void SetValueMax(double v);
    ZEL_LATE_BOUND(ValueMax)
    double ValueMin() const { return m_valueMin; }
    void SetValueMin(double v);
    ZEL_LATE_BOUND(ValueMin)
    // Characters that are refused when typed; by default none.
    QString IllegalChars() const { return m_illegalChars; }
    void SetIllegalChars(const QString &v);
    // Enforce ValueMin..ValueMax; by default false.
    bool LimitValue() const { return m_limitValue; }
    void SetLimitValue(bool v);
    ZEL_LATE_BOUND(LimitValue)
    // The text for text fields; for numbers the leading number of the text,
    // kept within the range when LimitValue is on, as the data type.
    QVariant Value() const;
    void SetValue(const QVariant &v);
    QString Text() const;
    void SetText(const QString &v);
    // By default true.
    bool Enabled() const { return m_enabled; }
    void SetEnabled(bool v);
    ZEL_LATE_BOUND(Enabled)
    // "" for text, "0" for whole numbers, "0.00" for 2 decimals.
    QString FormatString() const;

    bool IsNumeric() const { return m_numeric; }

    Q_INVOKABLE void InitProperties() override { zelLabelledField::InitProperties(); }
    const zel::zelPropertyTable &Properties() const override;

signals:
    // The user changed the text (not raised while the control writes it).
    void Changed();
    // Raised for each typed character before the field checks it; set
    // KeyAscii to another character to type that instead, or to 0 to drop it.
    void KeyPress(qint16 &KeyAscii);
    // Declared for hosts; the input box does not raise them.
    void KeyDown(qint16 &KeyCode, qint16 &Shift);
    void KeyUp(qint16 &KeyCode, qint16 &Shift);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void txtInput_KeyPress(qint16 &KeyAscii);
    void txtInput_Change();
    void txtInput_GotFocus();
    bool txtInput_Validate();
    bool outOfRange() const;
    bool leaveRefused();
    bool clickRefused(QEvent *event);
    void focusLeaving(Qt::FocusReason reason);
    bool mustLetGo() const;
    void watchWindow(bool on);
    void txtInput_LostFocus();
    void applyColours();
    void applyReadOnly();
    void writeText(const QString &text);

    QLineEdit *m_txtInput = nullptr;
    qint16 m_maxLength = 255;
    qint16 m_decimals = 2;
    qint32 m_dataType = 5;
    bool m_numeric = true;
    bool m_spinButtons = false;
    double m_valueMax = 0.0;
    double m_valueMin = 0.0;
    bool m_limitValue = false;
    QString m_illegalChars;
    bool m_enabled = true;
    bool m_readOnly = false;
    // The background follows whichever of Enabled and ReadOnly was set last.
    bool m_faceBackground = false;
    bool m_settingText = false;
    bool m_validating = false;
    // The window whose mouse presses are checked while the field has focus.
    QPointer<QWindow> m_watched;
};
