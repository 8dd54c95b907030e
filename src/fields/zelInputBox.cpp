#include "fields/zelInputBox.h"

#include "core/zelConvert.h"
#include "core/zelKeys.h"
#include "core/zelTrail.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"

#include <QApplication>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPalette>
#include <QScopedValueRollback>
#include <QTimer>
#include <QWindow>

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

// True while a field takes back the focus it refused to give up: the widget
// that held it for that moment was never entered by the user, so it neither
// checks nor reformats its own value.
bool g_takingFocusBack = false;

// Tab and Backtab as QWidget reads them: with Control or Alt they are not a
// move to the next control.
bool isTabMove(const QKeyEvent *key)
{
    if (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier))
        return false;
    return key->key() == Qt::Key_Tab || key->key() == Qt::Key_Backtab;
}

// The widget that a mouse press at pos in window will give the focus to, by
// the rule QApplication follows before it delivers the press; null when the
// focus stays where it is.
QWidget *clickFocusTarget(QWidget *window, const QPoint &pos)
{
    QWidget *w = window->childAt(pos);
    for (w = w ? w : window; w; w = w->parentWidget()) {
        QWidget *proxy = w;
        while (proxy->focusProxy())
            proxy = proxy->focusProxy();
        if (w->isEnabled() && (w->focusPolicy() & Qt::ClickFocus) == Qt::ClickFocus &&
            (proxy->focusPolicy() & Qt::ClickFocus) == Qt::ClickFocus)
            return proxy;
        if (w->isWindow() || w->hasFocus())
            return nullptr;
    }
    return nullptr;
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

zelInputBox::~zelInputBox()
{
    watchWindow(false);
}

const zel::zelPropertyTable &zelInputBox::Properties() const
{
    using B = zelInputBox;
    using zel::Prop;
    static const zel::zelPropertyTable table(
        FrameProperties(FrameKeys::Long),
        {
            // DataType raises Changed on every write, as a host expects.
            Prop("DataType", &B::DataType, &B::SetDataType)
                .Persist()
                .Default(qint32(5))
                .With(zel::Init | zel::Always),
            // The classic control never marked MaxLength changed; hosts that
            // rely on the store's mark see the same. On load the default is
            // what the control holds (255 on a new one).
            Prop("MaxLength", &B::MaxLength, &B::SetMaxLength)
                .Persist()
                .Default(qint16(255))
                .With(zel::Init | zel::NoMark | zel::CurrentDefault),
            Prop("Decimals", &B::Decimals, &B::SetDecimals)
                .Persist()
                .Default(qint16(2))
                .With(zel::Init),
            // The text lives in the text box; it is written under the
            // setting-text flag and never marked.
            Prop("Text", &B::Text, &B::SetText).Persist().With(zel::NoMark),
            Prop("Enabled", &B::Enabled, &B::SetEnabled).Persist().Default(true).With(zel::Init),
            Prop("SpinButtons", &B::SpinButtons, &B::SetSpinButtons)
                .Persist()
                .Refreshes(RefreshLayout),
            Prop("ValueMax", &B::ValueMax, &B::SetValueMax).Persist(),
            Prop("ValueMin", &B::ValueMin, &B::SetValueMin).Persist(),
            Prop("LimitValue", &B::LimitValue, &B::SetLimitValue).Persist(),
            Prop("IllegalChars", &B::IllegalChars, &B::SetIllegalChars).Persist(),
            // ReadOnly paints the background every time it is set, whatever
            // it held: it is how a host brings back the window colour.
            Prop("ReadOnly", &B::ReadOnly, &B::SetReadOnly).Persist().With(zel::Init | zel::Always),
            Prop("Value", &B::Value, &B::SetValue).With(zel::NoMark),
            Prop("FormatString", &B::FormatString),
        });
    return table;
}

void zelInputBox::SetMaxLength(qint16 v)
{
    Let(
        "MaxLength", m_maxLength,
        [&] {
            if (v < 0)
                throw zelError(zelError::InvalidPropertyValue);
            return v == 0 ? qint16(255) : v;
        },
        [&] { m_txtInput->setMaxLength(m_maxLength); });
}

void zelInputBox::SetDecimals(qint16 v)
{
    Let(
        "Decimals", m_decimals,
        [&] {
            if (v < 0)
                throw zelError(zelError::InvalidPropertyValue);
            return v >= m_maxLength && m_maxLength >= 1 ? qint16(m_maxLength - 1) : v;
        },
        [&] {
            // Read and write back, so that the text shows the new decimals.
            const QVariant current = Value();
            if (current.isValid())
                SetValue(current);
        });
}

void zelInputBox::SetDataType(qint32 v)
{
    Let(
        "DataType", m_dataType,
        [&] {
            switch (v) {
            case 2:
            case 3:
            case 4:
            case 5:
            case 8:
                return v;
            default:
                zel::platform().MessageBox(
                    QStringLiteral("This control now only supports numbers and strings"),
                    QStringLiteral("Limited Data Type"), this);
                return qint32(8);
            }
        },
        [&] {
            m_numeric = m_dataType != 8;
            if (m_dataType == 2 || m_dataType == 3)
                m_decimals = 0;
            m_txtInput->setAlignment((m_numeric ? Qt::AlignRight : Qt::AlignLeft) |
                                     Qt::AlignVCenter);
            emit Changed();
        });
}

void zelInputBox::SetSpinButtons(bool v)
{
    Let("SpinButtons", m_spinButtons, v);
}

void zelInputBox::SetValueMax(double v)
{
    Let("ValueMax", m_valueMax, v);
}

void zelInputBox::SetValueMin(double v)
{
    Let("ValueMin", m_valueMin, v);
}

void zelInputBox::SetIllegalChars(const QString &v)
{
    Let("IllegalChars", m_illegalChars, v);
}

void zelInputBox::SetLimitValue(bool v)
{
    Let("LimitValue", m_limitValue, v);
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
    QString text = m_txtInput->text();
    Let(
        "Value", text,
        [&] {
            return m_numeric ? zel::FormatFixed(zel::RoundTo(zel::CDbl(v), m_decimals), m_decimals)
                             : zel::CStr(v);
        },
        [&] { writeText(text); });
}

QString zelInputBox::Text() const
{
    return m_txtInput->text();
}

void zelInputBox::SetText(const QString &v)
{
    QString text = m_txtInput->text();
    LetThen("Text", text, v, [&] { writeText(text); });
}

void zelInputBox::applyColours()
{
    PaintInput(m_txtInput, m_enabled, m_faceBackground);
}

void zelInputBox::SetEnabled(bool v)
{
    LetThen("Enabled", m_enabled, v, [&] {
        m_txtInput->setEnabled(m_enabled);
        m_faceBackground = !m_enabled;
        applyColours();
        if (m_enabled)
            applyReadOnly();
    });
}

void zelInputBox::SetReadOnly(bool v)
{
    LetThen("ReadOnly", m_readOnly, v, [&] { applyReadOnly(); });
}

void zelInputBox::applyReadOnly()
{
    m_txtInput->setReadOnly(m_readOnly);
    // A read-only field leaves the tab order; clicking still reaches it,
    // so its text can be selected and copied.
    const bool tabStop = m_readOnly ? false : m_enabled;
    m_txtInput->setFocusPolicy(tabStop ? Qt::StrongFocus : Qt::ClickFocus);
    m_faceBackground = m_readOnly;
    applyColours();
}

void zelInputBox::txtInput_KeyPress(qint16 &KeyAscii)
{
    zel::Trail t(this, "txtInput_KeyPress");
    t.Run([&] {
        emit KeyPress(KeyAscii);
        // Read unsigned: a character above U+7FFF is a negative KeyAscii.
        if (char16_t(KeyAscii) >= 32) {
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

bool zelInputBox::outOfRange() const
{
    if (!m_numeric || !m_limitValue)
        return false;
    const double d = zel::Val(m_txtInput->text());
    return d < m_valueMin || d > m_valueMax;
}

bool zelInputBox::txtInput_Validate()
{
    bool cancel = false;
    zel::Trail t(this, "txtInput_Validate");
    t.Run([&] {
        if (outOfRange()) {
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

bool zelInputBox::leaveRefused()
{
    // An attempt made while the message is still up is refused without a
    // second message.
    if (m_validating)
        return true;
    const QScopedValueRollback<bool> guard(m_validating, true);
    return txtInput_Validate();
}

bool zelInputBox::mustLetGo() const
{
    // A field that is hidden, disabled or on a window that is closing cannot
    // keep anyone in it, and a modal box now would outlive its form.
    QWidget *next = QApplication::focusWidget();
    return !next || next->window() != window() || !m_txtInput->isVisible() ||
           !m_txtInput->isEnabled() || !window()->isVisible();
}

void zelInputBox::focusLeaving(Qt::FocusReason reason)
{
    switch (reason) {
    case Qt::ActiveWindowFocusReason:
    case Qt::PopupFocusReason:
    case Qt::MenuBarFocusReason:
        return; // the focus comes back to the field; the user has not left it
    default:
        break;
    }
    if (g_takingFocusBack || m_validating || !zel::UserMode(this))
        return;
    if (mustLetGo()) {
        watchWindow(false);
        return;
    }
    // Tab keys and mouse presses are refused before the focus moves; this is
    // for every other move (Enter as Tab, shortcuts, the host's setFocus).
    // The focus comes back first, so that the message box returns it here.
    if (outOfRange()) {
        {
            const QScopedValueRollback<bool> guard(g_takingFocusBack, true);
            m_txtInput->setFocus(Qt::OtherFocusReason);
        }
        leaveRefused();
        return;
    }
    watchWindow(false);
    txtInput_LostFocus();
}

bool zelInputBox::clickRefused(QEvent *event)
{
    if ((event->type() != QEvent::MouseButtonPress &&
         event->type() != QEvent::MouseButtonDblClick) ||
        !event->spontaneous() || QApplication::focusWidget() != m_txtInput ||
        QApplication::activePopupWidget() || !zel::UserMode(this))
        return false;
    const QPoint pos = static_cast<QMouseEvent *>(event)->position().toPoint();
    QWidget *target = clickFocusTarget(window(), pos);
    return target && target != m_txtInput && leaveRefused();
}

void zelInputBox::watchWindow(bool on)
{
    QWindow *handle = on ? window()->windowHandle() : nullptr;
    if (handle == m_watched)
        return;
    if (m_watched)
        m_watched->removeEventFilter(this);
    m_watched = handle;
    if (handle)
        handle->installEventFilter(this);
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
    // A press that would move the focus to another control is checked before
    // QApplication moves it, and is eaten when the user must stay.
    if (watched == m_watched && m_watched)
        return clickRefused(event) || zelLabelledField::eventFilter(watched, event);
    if (watched != m_txtInput)
        return zelLabelledField::eventFilter(watched, event);

    switch (event->type()) {
    case QEvent::KeyPress: {
        auto *key = static_cast<QKeyEvent *>(event);
        // The check runs before the focus moves; a refused Tab is eaten.
        if (isTabMove(key) && zel::UserMode(this) && leaveRefused())
            return true;
        if (RouteTypedKey(key, m_txtInput, [this](qint16 &k) { txtInput_KeyPress(k); }))
            return true;
        break;
    }
    case QEvent::FocusIn:
        if (zel::UserMode(this))
            watchWindow(true);
        if (g_takingFocusBack)
            break; // the focus never really left
        QTimer::singleShot(0, m_txtInput, [this] {
            if (m_txtInput->hasFocus())
                txtInput_GotFocus();
        });
        break;
    case QEvent::FocusOut:
        focusLeaving(static_cast<QFocusEvent *>(event)->reason());
        break;
    default:
        break;
    }
    return zelLabelledField::eventFilter(watched, event);
}
