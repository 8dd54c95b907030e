#include "fields/zelDateTime.h"

#include "core/zelConvert.h"
#include "core/zelKeys.h"
#include "core/zelTrail.h"
#include "fields/zelOleDate.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"

#include <QCoreApplication>
#include <QDateTimeEdit>
#include <QEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QPalette>
#include <QScopedValueRollback>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTimer>

#include <algorithm>
#include <cmath>

ZEL_REGISTER_PROGID(zelDateTime);

namespace {

// The picker's formats: a drop-down calendar for dates, an up-down editor
// for times.
const QString dateFormat = QStringLiteral("MMM dd, yyyy");
const QString timeFormat = QStringLiteral("hh:mm AP");

bool isSeparator(QChar c)
{
    return c == QLatin1Char('/') || c == QLatin1Char('-') || c == QLatin1Char('.') ||
           c == QLatin1Char(' ');
}

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

// Whether a text can stand in the text box while a date is being typed.
bool fitsDateEntry(const QString &text, const zelDateEntryRule &rule)
{
    if (text.size() > zelDateMaxTyped)
        return false;
    int group = 0;
    qsizetype digits = 0;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (isDigit(c)) {
            ++digits;
            if (digits > (group == rule.YearGroup ? 4 : 2))
                return false;
        } else if (isSeparator(c)) {
            if (digits == 0 || group == 2)
                return false; // at the start, behind another one, or a third
            ++group;
            digits = 0;
        } else {
            return false;
        }
    }
    return true;
}

// The picker's range, as wide as the classic date scale goes for a picker.
const QDateTime pickerMin(QDate(1601, 1, 1), QTime(0, 0));
const QDateTime pickerMax(QDate(9999, 12, 31), QTime(23, 59, 59, 999));

} // namespace

zelDateInputLayout zelLayoutDateInput(const QRect &input, bool timeInput, qint32 buttonTwips)
{
    zelDateInputLayout l;
    l.PickerRect = input;
    if (timeInput)
        return l;
    l.TextVisible = true;
    l.TextRect =
        QRect(input.x(), input.y(), qMax(0, input.width() - qMax(0, buttonTwips)), input.height());
    return l;
}

zelDateEntryRule zelDateEntryRuleFor(const QLocale &locale)
{
    zelDateEntryRule rule;
    const QString format = zel::DateEntryFormat(locale);
    int group = 0;
    bool separatorSeen = false;
    for (const QChar c : format) {
        if (c == QLatin1Char('y'))
            rule.YearGroup = group;
        if (isSeparator(c)) {
            if (!separatorSeen)
                rule.Separator = c;
            separatorSeen = true;
            ++group;
        }
    }
    return rule;
}

QString zelDateTypedText(const QString &text, qsizetype selStart, qsizetype selLength, QChar typed,
                         const zelDateEntryRule &rule)
{
    const bool digit = isDigit(typed);
    if (!digit && !isSeparator(typed))
        return QString();
    selStart = qBound<qsizetype>(0, selStart, text.size());
    selLength = qBound<qsizetype>(0, selLength, text.size() - selStart);
    const QString before = text.left(selStart);
    const QString after = text.mid(selStart + selLength);
    const QString insert = digit ? QString(typed) : QString(rule.Separator);
    if (fitsDateEntry(before + insert + after, rule))
        return insert;
    // A digit that overfills its group at the end of the text opens the next.
    if (digit && after.isEmpty()) {
        const QString opened = QString(rule.Separator) + typed;
        if (fitsDateEntry(before + opened, rule))
            return opened;
    }
    return QString();
}

zelDateTime::zelDateTime(QWidget *parent)
    : zelLabelledField(parent), m_pvDate(new QDateTimeEdit(this)), m_txtInput(new QLineEdit(this))
{
    m_pvDate->setObjectName(QStringLiteral("pvDate"));
    m_txtInput->setObjectName(QStringLiteral("txtInput"));
    m_pvDate->installEventFilter(this);
    m_txtInput->installEventFilter(this);
    connect(m_pvDate, &QDateTimeEdit::dateTimeChanged, this, [this] { pvDate_Change(); });
    connect(m_txtInput, &QLineEdit::textChanged, this, [this] { txtInput_Change(); });
    setPicker(QDateTime::currentDateTime());
    applyMode();
    applyColours();
    LayoutFrame();
}

zelDateTime::~zelDateTime() = default;

namespace {

// Puts entries into a base class's list right behind the entry named after,
// so that a table keeps the load order of the stored keys.
void insertAfter(std::vector<zel::zelPropertyDecl> &entries, const char *after,
                 std::initializer_list<zel::zelPropertyDecl> own)
{
    auto it = std::find_if(entries.begin(), entries.end(), [&](const zel::zelPropertyDecl &d) {
        return qstrcmp(d.Name, after) == 0;
    });
    Q_ASSERT(it != entries.end());
    entries.insert(it + 1, own.begin(), own.end());
}

} // namespace

const zel::zelPropertyTable &zelDateTime::Properties() const
{
    using D = zelDateTime;
    using zel::Prop;
    static const zel::zelPropertyTable table = [] {
        std::vector<zel::zelPropertyDecl> entries = FrameProperties(FrameKeys::Short);
        // A stored type other than a date is the refused type of an earlier
        // session: it loads as 8 without asking again or raising Changed.
        // Not set by InitProperties: a new field holds 7 already, and the
        // setter raises Changed on every write.
        insertAfter(entries, "SuffixBold",
                    {Prop("DataType", &D::DataType, &D::SetDataType)
                         .Persist()
                         .Default(qint32(7))
                         .With(zel::Always | zel::StoreOnLoad)});
        insertAfter(
            entries, "Margin",
            {Prop("Text", &D::Text, &D::SetText).Persist(),
             Prop("Enabled", &D::Enabled, &D::SetEnabled).Persist().Default(true).With(zel::Init)});
        return zel::zelPropertyTable(
            entries, {
                         Prop("TimeInput", &D::TimeInput, &D::SetTimeInput)
                             .Persist()
                             .With(zel::Init)
                             .Refreshes(RefreshMode | RefreshLayout),
                         Prop("Value", &D::Value, &D::SetValue).With(zel::NoMark),
                         Prop("Changed", &D::GetChanged, &D::SetChanged).With(zel::NoMark),
                         // Written for older hosts, with no default so that it is
                         // always there; never read back.
                         Prop("CalendarMonths", &D::calendarMonths)
                             .Persist()
                             .StoredAs(zel::Kind::Variant)
                             .Default(QVariant())
                             .With(zel::WriteOnly),
                     });
    }();
    return table;
}

void zelDateTime::Refresh(quint32 what)
{
    if (what & RefreshMode)
        applyMode();
    zelLabelledField::Refresh(what);
}

void zelDateTime::setPicker(const QDateTime &dt)
{
    // The control's own writes are no change by the user.
    const QScopedValueRollback<bool> guard(m_settingPicker, true);
    m_pvDate->setDateTime(dt);
}

void zelDateTime::writeText(const QString &text)
{
    const QScopedValueRollback<bool> guard(m_settingText, true);
    m_txtInput->setText(text);
}

void zelDateTime::applyMode()
{
    const QDateTime keep = m_pvDate->dateTime();
    const QScopedValueRollback<bool> guard(m_settingPicker, true);
    if (m_timeInput) {
        m_pvDate->setDisplayFormat(timeFormat);
        m_pvDate->setCalendarPopup(false);
        m_pvDate->setButtonSymbols(QAbstractSpinBox::UpDownArrows);
    } else {
        m_pvDate->setDisplayFormat(dateFormat);
        m_pvDate->setCalendarPopup(true);
    }
    // A format without date sections pins the picker to one day; the field
    // keeps the whole range in either mode.
    m_pvDate->setDateTimeRange(pickerMin, pickerMax);
    m_pvDate->setDateTime(keep);
    // Time mode switches the picker on, also in a disabled field; in date
    // mode the picker follows Enabled, as the text box does.
    m_pvDate->setEnabled(m_timeInput || m_enabled);
    m_pvDate->setFocusPolicy(m_timeInput ? Qt::StrongFocus : Qt::NoFocus);
    m_txtInput->setVisible(!m_timeInput);
    SetInputWidget(m_timeInput ? static_cast<QWidget *>(m_pvDate) : m_txtInput);
}

namespace {

// The picker's drop-down button within a picker of the given size, as the
// style draws it with the calendar switched on.
QRect dropDownButton(const QDateTimeEdit *picker, const QSize &size)
{
    QStyleOptionComboBox opt;
    opt.initFrom(picker);
    opt.editable = true;
    opt.frame = true;
    opt.subControls = QStyle::SC_All;
    opt.rect = QRect(QPoint(0, 0), size);
    return picker->style()->subControlRect(QStyle::CC_ComboBox, &opt, QStyle::SC_ComboBoxArrow,
                                           picker);
}

} // namespace

void zelDateTime::PlaceInput(const QRect &twips)
{
    qint32 buttonTwips = 0;
    if (!m_timeInput) {
        const QSize size = zel::TwipsToPixels(twips).size();
        const QRect arrow = dropDownButton(m_pvDate, size);
        if (arrow.isValid())
            buttonTwips = zel::PixelsToTwips(size.width() - arrow.left());
    }
    const zelDateInputLayout l = zelLayoutDateInput(twips, m_timeInput, buttonTwips);
    m_pvDate->setGeometry(zel::TwipsToPixels(l.PickerRect));
    m_txtInput->setGeometry(zel::TwipsToPixels(l.TextRect));
    m_txtInput->setVisible(l.TextVisible);
    m_txtInput->raise();
}

void zelDateTime::applyColours()
{
    PaintInput(m_txtInput, m_enabled, !m_enabled);
    PaintInput(m_pvDate, m_enabled, !m_enabled);
}

void zelDateTime::SetEnabled(bool v)
{
    LetThen("Enabled", m_enabled, v, [&] {
        m_txtInput->setEnabled(m_enabled);
        m_pvDate->setEnabled(m_enabled);
        applyColours();
    });
}

QString zelDateTime::Text() const
{
    return m_txtInput->text();
}

void zelDateTime::SetText(const QString &v)
{
    QString text = m_txtInput->text();
    LetThen("Text", text, v, [&] { writeText(text); });
}

bool zelDateTime::IsValidDate(const QString &text, QDateTime *date) const
{
    bool valid = false;
    zel::Trail t(this, "IsValidDate");
    t.Run([&] {
        static const QDateTime earliest(QDate(1950, 1, 1), QTime(0, 0));
        const QDateTime d = zel::DateFromText(text);
        valid = d.isValid() && d > earliest;
        if (valid && date)
            *date = d;
    });
    return valid;
}

QVariant zelDateTime::Value() const
{
    QVariant result;
    zel::Trail t(this, "Value Get");
    t.Run([&] {
        if (m_timeInput) {
            const QTime time = m_pvDate->time();
            result = QDateTime(zel::OleZeroDate().date(), QTime(time.hour(), time.minute()));
            return;
        }
        QDateTime d;
        if (IsValidDate(m_txtInput->text(), &d))
            result = QDateTime(d.date(), QTime(0, 0));
        else
            result = zel::OleZeroDate();
    });
    return result;
}

namespace {

// What the Value setter writes: the text box's text and the picker's value.
struct zelDateShown
{
    QString Text;
    QDateTime Picker;

    bool operator==(const zelDateShown &) const = default;
};

} // namespace

void zelDateTime::SetValue(const QVariant &v)
{
    zelDateShown shown{m_txtInput->text(), m_pvDate->dateTime()};
    Let(
        "Value", shown,
        [&] {
            zelDateShown next = shown;
            const bool empty =
                !v.isValid() || v.isNull() ||
                (v.metaType().id() == QMetaType::QString && v.toString().trimmed().isEmpty());
            if (empty) {
                next.Text.clear();
                next.Picker = QDateTime::currentDateTime();
                return next;
            }
            if (m_timeInput) {
                next.Picker = zel::ToDateTime(v);
                return next;
            }
            // Whatever the host passes is judged as a date: a value that is no
            // date at all counts as invalid rather than failing.
            QDateTime d;
            bool valid = false;
            try {
                d = zel::ToDateTime(v);
                valid = d > QDateTime(QDate(1950, 1, 1), QTime(0, 0));
            } catch (const zelError &) {
                valid = false;
            }
            next.Text = valid ? zel::ShortDateText(d.date()) : QString();
            next.Picker = QDateTime(valid ? d.date() : QDate::currentDate(), m_pvDate->time());
            return next;
        },
        [&] {
            // Only what differs is written: a text written again would lose
            // the user's cursor and selection.
            if (shown.Text != m_txtInput->text())
                writeText(shown.Text);
            if (shown.Picker != m_pvDate->dateTime())
                setPicker(shown.Picker);
        });
}

void zelDateTime::SetTimeInput(bool v)
{
    Let("TimeInput", m_timeInput, v);
}

void zelDateTime::SetDataType(qint32 v)
{
    Let(
        "DataType", m_dataType,
        // The refused type falls back to the string type, not to dates.
        [&] { return v == 7 ? qint32(7) : qint32(8); },
        [&] {
            // Asked once the type is stored rather than before, so that a
            // load, which only stores it, does not ask again.
            if (v != 7)
                zel::platform().MessageBox(QStringLiteral("This control only supports dates"),
                                           QStringLiteral("Limited Data Type"), this);
            emit Changed();
        });
}

void zelDateTime::SetChanged(bool v)
{
    Let("Changed", m_changed, v);
}

void zelDateTime::pvDate_Change()
{
    if (m_settingPicker)
        return;
    zel::Trail t(this, "pvDate_Change");
    t.Run([&] {
        m_changed = true;
        emit Changed();
        writeText(zel::ShortDateText(m_pvDate->date()));
    });
}

void zelDateTime::txtInput_Change()
{
    if (m_settingText)
        return;
    zel::Trail t(this, "txtInput_Change");
    t.Run([&] {
        // The calendar opens on the day being typed.
        QDateTime d;
        if (!m_timeInput && IsValidDate(m_txtInput->text(), &d))
            setPicker(QDateTime(d.date(), m_pvDate->time()));
    });
}

void zelDateTime::txtInput_KeyPress(qint16 &KeyAscii)
{
    zel::Trail t(this, "txtInput_KeyPress");
    t.Run([&] {
        emit KeyPress(KeyAscii);
        if (KeyAscii == 13) {
            ApplyEnterAsTab(KeyAscii, m_txtInput);
            return;
        }
        if (char16_t(KeyAscii) < 32) // unsigned: above U+7FFF is negative
            return;
        const qsizetype selStart = m_txtInput->hasSelectedText() ? m_txtInput->selectionStart()
                                                                 : m_txtInput->cursorPosition();
        const qsizetype selLength = m_txtInput->selectedText().size();
        const QString typed = zelDateTypedText(m_txtInput->text(), selStart, selLength,
                                               QChar(char16_t(KeyAscii)), zelDateEntryRuleFor());
        if (typed.isEmpty()) {
            KeyAscii = 0;
            return;
        }
        if (typed.size() > 1)
            m_txtInput->insert(typed.chopped(1)); // the separator that opens the next group
        KeyAscii = qint16(typed.back().unicode());
    });
}

void zelDateTime::txtInput_GotFocus()
{
    zel::Trail t(this, "txtInput_GotFocus");
    t.Run([&] {
        if (zel::UserMode(this))
            m_txtInput->selectAll();
    });
}

void zelDateTime::pvDate_KeyPress(qint16 &KeyAscii)
{
    zel::Trail t(this, "pvDate_KeyPress");
    t.Run([&] {
        emit KeyPress(KeyAscii);
        if (KeyAscii == 13)
            ApplyEnterAsTab(KeyAscii, m_pvDate);
    });
}

void zelDateTime::pvDate_KeyDown(qint16 &KeyCode, qint16 &Shift)
{
    zel::Trail t(this, "pvDate_KeyDown");
    t.Run([&] { emit KeyDown(KeyCode, Shift); });
}

void zelDateTime::pvDate_KeyUp(qint16 &KeyCode, qint16 &Shift)
{
    zel::Trail t(this, "pvDate_KeyUp");
    t.Run([&] { emit KeyUp(KeyCode, Shift); });
}

bool zelDateTime::filterTextKey(QKeyEvent *ke)
{
    const bool dropDown = ke->key() == Qt::Key_F4 ||
                          (ke->key() == Qt::Key_Down && (ke->modifiers() & Qt::AltModifier));
    if (dropDown && !m_timeInput && m_enabled) {
        // The picker opens its calendar from a press on its button only.
        const QPointF centre = dropDownButton(m_pvDate, m_pvDate->size()).center();
        QMouseEvent press(QEvent::MouseButtonPress, centre, m_pvDate->mapToGlobal(centre),
                          Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
        QCoreApplication::sendEvent(m_pvDate, &press);
        return true;
    }
    // The host or the date rule may type another character in its place.
    return RouteTypedKey(ke, m_txtInput, [this](qint16 &key) { txtInput_KeyPress(key); });
}

bool zelDateTime::filterPickerKey(QKeyEvent *ke)
{
    qint16 code = zel::KeyCode(ke);
    qint16 shift = zel::ShiftState(ke);
    if (code != 0) {
        pvDate_KeyDown(code, shift);
        if (code == 0)
            return true;
    }
    const qint16 original = zel::KeyAscii(ke);
    if (original == 0)
        return false;
    qint16 key = original;
    pvDate_KeyPress(key);
    if (key == 0)
        return true;
    if (key != original) {
        if (key >= 32) {
            const QScopedValueRollback<bool> guard(m_resending, true);
            const QString text{QChar(char16_t(key))};
            QKeyEvent other(QEvent::KeyPress, 0, ke->modifiers(), text);
            QCoreApplication::sendEvent(m_pvDate, &other);
        }
        return true;
    }
    return false;
}

bool zelDateTime::filterPickerKeyUp(QKeyEvent *ke)
{
    if (ke->isAutoRepeat())
        return false;
    qint16 code = zel::KeyCode(ke);
    qint16 shift = zel::ShiftState(ke);
    if (code != 0)
        pvDate_KeyUp(code, shift);
    return false;
}

bool zelDateTime::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_txtInput) {
        if (event->type() == QEvent::KeyPress && filterTextKey(static_cast<QKeyEvent *>(event)))
            return true;
        if (event->type() == QEvent::FocusIn) {
            QTimer::singleShot(0, m_txtInput, [this] {
                if (m_txtInput->hasFocus())
                    txtInput_GotFocus();
            });
        }
    } else if (watched == m_pvDate && !m_resending) {
        if (event->type() == QEvent::KeyPress && filterPickerKey(static_cast<QKeyEvent *>(event)))
            return true;
        if (event->type() == QEvent::KeyRelease)
            filterPickerKeyUp(static_cast<QKeyEvent *>(event));
    }
    return zelLabelledField::eventFilter(watched, event);
}
