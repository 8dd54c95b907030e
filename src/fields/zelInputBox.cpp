#include "fields/zelInputBox.h"

#include "core/zelConvert.h"
#include "core/zelKeys.h"
#include "core/zelPropertyReader.h"
#include "core/zelTrail.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPalette>
#include <QScopedValueRollback>
#include <QTimer>

ZEL_REGISTER_PROGID(zelInputBox);

namespace {

// Trims blanks only, as the classic Trim does (tabs stay).
QString trimBlanks(const QString &s)
{
    qsizetype b = 0, e = s.size();
    while (b < e && s.at(b) == QLatin1Char(' '))
        ++b;
    while (e > b && s.at(e - 1) == QLatin1Char(' '))
        --e;
    return s.mid(b, e - b);
}

// Numbers may keep their scratch QVariant types as the data type asks.
QVariant asDataType(double d, qint32 dataType)
{
    switch (dataType) {
    case 2:
        return QVariant::fromValue(zel::CInt(d));
    case 3:
        return QVariant::fromValue(zel::CLng(d));
    case 4:
        return QVariant::fromValue(zel::CSng(d));
    default:
        return QVariant::fromValue(d);
    }
}

} // namespace

zelInputBox::zelInputBox(QWidget *parent)
    : zelLabelledField(parent), m_txtInput(new QLineEdit(this))
{
    m_txtInput->setObjectName(QStringLiteral("txtInput"));
    m_txtInput->setMaxLength(m_maxLength);
    m_txtInput->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    m_txtInput->installEventFilter(this);
    SetInputWidget(m_txtInput);
    connect(m_txtInput, &QLineEdit::textChanged, this, [this] { txtInput_Change(); });
    applyColours();
    LayoutFrame();
}

zelInputBox::~zelInputBox() = default;

void zelInputBox::InitProperties()
{
    zel::Trail t(this, "UserControl_InitProperties");
    t.Run([&] {
        SetDataType(5);
        SetMaxLength(0);
        SetDecimals(2);
        SetEnabled(true);
        SetReadOnly(false);
    });
}

void zelInputBox::SetMaxLength(const QVariant &v)
{
    zel::Trail t(this, "MaxLength Let");
    t.Run([&] {
        qint16 n = zel::CInt(v);
        if (n < 0)
            throw zelError(zelError::InvalidPropertyValue);
        if (n == 0)
            n = 255;
        m_maxLength = n;
        m_txtInput->setMaxLength(n);
        // The classic control never marked MaxLength changed; hosts that
        // rely on the store's mark see the same.
    });
}

void zelInputBox::SetDecimals(const QVariant &v)
{
    zel::Trail t(this, "Decimals Let");
    t.Run([&] {
        qint16 d = zel::CInt(v);
        if (d < 0)
            throw zelError(zelError::InvalidPropertyValue);
        if (d >= m_maxLength && m_maxLength >= 1)
            d = qint16(m_maxLength - 1);
        m_decimals = d;
        // Read and write back, so that the text shows the new decimals.
        const QVariant current = Value();
        if (current.isValid())
            SetValue(current);
        MarkChanged(QStringLiteral("Decimals"));
    });
}

void zelInputBox::SetDataType(const QVariant &v)
{
    zel::Trail t(this, "DataType Let");
    t.Run([&] {
        qint32 type = zel::CLng(v);
        switch (type) {
        case 2:
        case 3:
            m_numeric = true;
            m_decimals = 0;
            break;
        case 4:
        case 5:
            m_numeric = true;
            break;
        case 8:
            m_numeric = false;
            break;
        default:
            m_numeric = false;
            zel::platform().MessageBox(
                QStringLiteral("This control now only supports numbers and strings"),
                QStringLiteral("Limited Data Type"), this);
            type = 8;
            break;
        }
        m_dataType = type;
        m_txtInput->setAlignment((m_numeric ? Qt::AlignRight : Qt::AlignLeft) | Qt::AlignVCenter);
        MarkChanged(QStringLiteral("DataType"));
        emit Changed();
    });
}

void zelInputBox::SetSpinButtons(const QVariant &v)
{
    zel::Trail t(this, "SpinButtons Let");
    t.Run([&] {
        m_spinButtons = zel::CBool(v);
        MarkChanged(QStringLiteral("SpinButtons"));
        LayoutFrame();
    });
}

void zelInputBox::SetValueMax(const QVariant &v)
{
    zel::Trail t(this, "ValueMax Let");
    t.Run([&] {
        m_valueMax = zel::CDbl(v);
        MarkChanged(QStringLiteral("ValueMax"));
    });
}

void zelInputBox::SetValueMin(const QVariant &v)
{
    zel::Trail t(this, "ValueMin Let");
    t.Run([&] {
        m_valueMin = zel::CDbl(v);
        MarkChanged(QStringLiteral("ValueMin"));
    });
}

void zelInputBox::SetIllegalChars(const QString &v)
{
    zel::Trail t(this, "IllegalChars Let");
    t.Run([&] {
        m_illegalChars = v;
        MarkChanged(QStringLiteral("IllegalChars"));
    });
}

void zelInputBox::SetLimitValue(const QVariant &v)
{
    zel::Trail t(this, "LimitValue Let");
    t.Run([&] {
        m_limitValue = zel::CBool(v);
        MarkChanged(QStringLiteral("LimitValue"));
    });
}

QString zelInputBox::FormatString() const
{
    if (!m_numeric)
        return QString();
    if (m_decimals == 0)
        return QStringLiteral("0");
    return QStringLiteral("0.") + QString(m_decimals, QLatin1Char('0'));
}

QVariant zelInputBox::Value() const
{
    QVariant result;
    zel::Trail t(this, "Value Get");
    t.Run([&] {
        if (!m_numeric) {
            result = m_txtInput->text();
            return;
        }
        double d = zel::Val(m_txtInput->text());
        if (m_limitValue) {
            if (d > m_valueMax)
                d = m_valueMax;
            if (d < m_valueMin)
                d = m_valueMin;
        }
        result = asDataType(d, m_dataType);
    });
    return result;
}

void zelInputBox::writeText(const QString &text)
{
    // The control's own writes raise no Changed.
    const QScopedValueRollback<bool> guard(m_settingText, true);
    m_txtInput->setText(text);
}

void zelInputBox::SetValue(const QVariant &v)
{
    zel::Trail t(this, "Value Let");
    t.Run([&] {
        if (m_numeric)
            writeText(zel::FormatFixed(zel::RoundTo(zel::CDbl(v), m_decimals), m_decimals));
        else
            writeText(zel::CStr(v));
    });
}

QString zelInputBox::Text() const
{
    return m_txtInput->text();
}

void zelInputBox::SetText(const QString &v)
{
    zel::Trail t(this, "Text Let");
    t.Run([&] { writeText(v); });
}

void zelInputBox::applyColours()
{
    PaintInput(m_txtInput, m_enabled, !m_enabled || m_readOnly);
}

void zelInputBox::SetEnabled(const QVariant &v)
{
    zel::Trail t(this, "Enabled Let");
    t.Run([&] {
        m_enabled = zel::CBool(v);
        m_txtInput->setEnabled(m_enabled);
        applyColours();
        if (m_enabled)
            SetReadOnly(m_readOnly);
        MarkChanged(QStringLiteral("Enabled"));
    });
}

void zelInputBox::SetReadOnly(const QVariant &v)
{
    zel::Trail t(this, "ReadOnly Let");
    t.Run([&] {
        m_readOnly = zel::CBool(v);
        m_txtInput->setReadOnly(m_readOnly);
        // A read-only field leaves the tab order; clicking still reaches it,
        // so its text can be selected and copied.
        const bool tabStop = m_readOnly ? false : m_enabled;
        m_txtInput->setFocusPolicy(tabStop ? Qt::StrongFocus : Qt::ClickFocus);
        applyColours();
        MarkChanged(QStringLiteral("ReadOnly"));
    });
}

void zelInputBox::txtInput_KeyPress(qint16 &KeyAscii)
{
    zel::Trail t(this, "txtInput_KeyPress");
    t.Run([&] {
        emit KeyPress(KeyAscii);
        if (KeyAscii >= 32) {
            const QChar ch{char16_t(KeyAscii)};
            if (!m_illegalChars.isEmpty() && m_illegalChars.contains(ch)) {
                zel::platform().Beep();
                KeyAscii = 0;
                return;
            }
            if (!m_numeric)
                return;
            const QString text = m_txtInput->text();
            const qsizetype selStart = m_txtInput->hasSelectedText() ? m_txtInput->selectionStart()
                                                                     : m_txtInput->cursorPosition();
            const qsizetype selLength = m_txtInput->selectedText().size();
            const QString result =
                trimBlanks(text.left(selStart) + ch + text.mid(selStart + selLength));
            bool accept = false;
            if (ch >= QLatin1Char('0') && ch <= QLatin1Char('9'))
                accept = true;
            else if (ch == QLatin1Char('.'))
                accept = m_decimals >= 1 && result.count(QLatin1Char('.')) == 1;
            else if (ch == QLatin1Char('-'))
                accept = result.startsWith(QLatin1Char('-')) && result.count(QLatin1Char('-')) == 1;
            if (!accept)
                KeyAscii = 0;
        } else if (KeyAscii == 13) {
            ApplyEnterAsTab(KeyAscii, m_txtInput);
        }
    });
}

void zelInputBox::txtInput_Change()
{
    zel::Trail t(this, "txtInput_Change");
    t.Run([&] {
        if (!m_settingText)
            emit Changed();
    });
}

void zelInputBox::txtInput_GotFocus()
{
    zel::Trail t(this, "txtInput_GotFocus");
    t.Run([&] {
        if (zel::UserMode(this))
            m_txtInput->selectAll();
    });
}

bool zelInputBox::txtInput_Validate()
{
    bool cancel = false;
    zel::Trail t(this, "txtInput_Validate");
    t.Run([&] {
        if (!m_numeric || !m_limitValue)
            return;
        const double d = zel::Val(m_txtInput->text());
        if (d < m_valueMin || d > m_valueMax) {
            zel::platform().MessageBox(
                QStringLiteral("Value must be within the range of ") +
                    zel::FormatFixed(m_valueMin, m_decimals) + QStringLiteral(" through ") +
                    zel::FormatFixed(m_valueMax, m_decimals) + QStringLiteral(" inclusive"),
                QStringLiteral("Data out of range"), this);
            cancel = true;
        }
    });
    return cancel;
}

void zelInputBox::txtInput_LostFocus()
{
    zel::Trail t(this, "txtInput_LostFocus");
    t.Run([&] {
        // Numbers are shown formatted again once the user leaves the field.
        if (m_numeric && !m_txtInput->text().isEmpty())
            SetValue(Value());
    });
}

bool zelInputBox::eventFilter(QObject *watched, QEvent *event)
{
    if (watched != m_txtInput)
        return zelLabelledField::eventFilter(watched, event);

    switch (event->type()) {
    case QEvent::KeyPress:
        if (RouteTypedKey(static_cast<QKeyEvent *>(event), m_txtInput,
                          [this](qint16 &key) { txtInput_KeyPress(key); }))
            return true;
        break;
    case QEvent::FocusIn:
        QTimer::singleShot(0, m_txtInput, [this] {
            if (m_txtInput->hasFocus())
                txtInput_GotFocus();
        });
        break;
    case QEvent::FocusOut: {
        if (m_validating || !zel::UserMode(this))
            break;
        const QScopedValueRollback<bool> guard(m_validating, true);
        if (txtInput_Validate()) {
            // Keep the user in the field until the number is in range.
            QTimer::singleShot(0, m_txtInput,
                               [this] { m_txtInput->setFocus(Qt::OtherFocusReason); });
        } else {
            txtInput_LostFocus();
        }
        break;
    }
    default:
        break;
    }
    return zelLabelledField::eventFilter(watched, event);
}

void zelInputBox::ReadProperties(zelPropertyBag &bag)
{
    zel::Trail t(this, "UserControl_ReadProperties");
    t.Run([&] {
        ReadFrameProperties(bag, FrameKeys::Long);
        zel::PropertyReader r(bag, this);
        SetDataType(r.Long(QStringLiteral("DataType"), 5));
        SetMaxLength(r.Int(QStringLiteral("MaxLength"), m_maxLength));
        SetDecimals(r.Int(QStringLiteral("Decimals"), 2));
        SetText(r.String(QStringLiteral("Text"), QString()));
        SetEnabled(r.Bool(QStringLiteral("Enabled"), true));
        SetSpinButtons(r.Bool(QStringLiteral("SpinButtons"), false));
        SetValueMax(r.Double(QStringLiteral("ValueMax"), 0.0));
        SetValueMin(r.Double(QStringLiteral("ValueMin"), 0.0));
        SetLimitValue(r.Bool(QStringLiteral("LimitValue"), false));
        SetIllegalChars(r.String(QStringLiteral("IllegalChars"), QString()));
        SetReadOnly(r.Bool(QStringLiteral("ReadOnly"), false));
    });
}

void zelInputBox::WriteProperties(zelPropertyBag &bag) const
{
    zel::Trail t(this, "UserControl_WriteProperties");
    t.Run([&] {
        WriteFrameProperties(bag, FrameKeys::Long);
        bag.WriteProperty(QStringLiteral("DataType"), m_dataType, 5);
        bag.WriteProperty(QStringLiteral("MaxLength"), m_maxLength, 255);
        bag.WriteProperty(QStringLiteral("Decimals"), m_decimals, 2);
        bag.WriteProperty(QStringLiteral("Text"), m_txtInput->text(), QString());
        bag.WriteProperty(QStringLiteral("Enabled"), m_enabled, true);
        bag.WriteProperty(QStringLiteral("SpinButtons"), m_spinButtons, false);
        bag.WriteProperty(QStringLiteral("ValueMax"), m_valueMax, 0.0);
        bag.WriteProperty(QStringLiteral("ValueMin"), m_valueMin, 0.0);
        bag.WriteProperty(QStringLiteral("LimitValue"), m_limitValue, false);
        bag.WriteProperty(QStringLiteral("IllegalChars"), m_illegalChars, QString());
        bag.WriteProperty(QStringLiteral("ReadOnly"), m_readOnly, false);
    });
}
