#include "core/zelFieldFrame.h"

#include "core/zelConvert.h"
#include "core/zelKeys.h"
#include "core/zelPropertyReader.h"
#include "core/zelTrail.h"
#include "platform/zelPlatform.h"

#include <QEvent>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QPalette>

QString zelPrefixText(const zelFrameProps &p)
{
    if (p.Prefix.isEmpty() || !p.PrefixColon)
        return p.Prefix;
    return p.Prefix + QLatin1Char(':');
}

QString zelSuffixText(const zelFrameProps &p)
{
    if (p.Suffix.isEmpty() || !p.SuffixParens)
        return p.Suffix;
    return QLatin1Char('(') + p.Suffix + QLatin1Char(')');
}

zelFrameLayout zelLayoutFrame(const zelFrameProps &p, qint32 innerWidth,
                              const zelTextWidth &measure)
{
    zelFrameLayout l;
    const qint32 labelHeight = zelFrameHeight - zelFrameLabelTop;

    l.PrefixText = zelPrefixText(p);
    qint32 prefixWidth = 0;
    if (p.PrefixWidth != 0) {
        l.PrefixVisible = true;
        prefixWidth = p.PrefixWidth;
    } else {
        prefixWidth = measure(l.PrefixText, p.PrefixBold);
        l.PrefixVisible = !l.PrefixText.isEmpty();
    }
    if (prefixWidth < 0)
        throw zelError(zelError::InvalidPropertyValue);
    l.PrefixSpace =
        l.PrefixVisible ? zel::Checked<qint16>(qint64(prefixWidth) + zelFrameGap) : qint16(0);
    l.PrefixRect = QRect(0, zelFrameLabelTop, prefixWidth, labelHeight);

    l.SuffixText = zelSuffixText(p);
    qint32 suffixWidth = 0;
    if (p.SuffixWidth != 0) {
        l.SuffixVisible = true;
        suffixWidth = p.SuffixWidth;
    } else {
        suffixWidth = measure(l.SuffixText, p.SuffixBold);
        l.SuffixVisible = !l.SuffixText.isEmpty();
    }
    if (suffixWidth < 0)
        throw zelError(zelError::InvalidPropertyValue);
    l.SuffixSpace = l.SuffixVisible ? suffixWidth : 0;
    if (l.SuffixSpace > 0)
        l.SuffixSpace = zel::Checked<qint32>(qint64(l.SuffixSpace) + zelFrameGap);
    l.SuffixRect = QRect(zel::Checked<qint32>(qint64(innerWidth) - suffixWidth), l.PrefixRect.top(),
                         suffixWidth, labelHeight);

    qint16 inputWidth =
        zel::Checked<qint16>(qint64(innerWidth) - l.PrefixSpace - qint64(l.SuffixSpace));
    if (inputWidth < zelFrameMinInput)
        inputWidth = zelFrameMinInput;
    l.InputRect = QRect(l.PrefixSpace, 0, inputWidth, zelFrameHeight);
    return l;
}

namespace {

Qt::Alignment toQtAlignment(qint16 a)
{
    switch (a) {
    case 1:
        return Qt::AlignRight | Qt::AlignVCenter;
    case 2:
        return Qt::AlignHCenter | Qt::AlignVCenter;
    default:
        return Qt::AlignLeft | Qt::AlignVCenter;
    }
}

qint16 checkedAlignment(const QVariant &v)
{
    const qint16 a = zel::CInt(v);
    if (a < 0 || a > 2)
        throw zelError(zelError::InvalidPropertyValue);
    return a;
}

} // namespace

zelLabelledField::zelLabelledField(QWidget *parent)
    : QWidget(parent), m_lblPrefix(new QLabel(this)), m_lblSuffix(new QLabel(this))
{
    m_lblPrefix->setObjectName(QStringLiteral("lblPrefix"));
    m_lblSuffix->setObjectName(QStringLiteral("lblSuffix"));
    m_lblPrefix->setAlignment(toQtAlignment(m_props.PrefixAlignment));
    m_lblSuffix->setAlignment(toQtAlignment(m_props.SuffixAlignment));
    m_lblPrefix->hide();
    m_lblSuffix->hide();
    setFixedHeight(zel::TwipsToPixels(zelFrameHeight));
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

zelLabelledField::~zelLabelledField() = default;

void zelLabelledField::SetInputWidget(QWidget *input)
{
    m_input = input;
    setFocusProxy(input);
}

qint32 zelLabelledField::measure(const QString &text, bool bold) const
{
    if (text.isEmpty())
        return 0;
    QFont f = font();
    f.setBold(bold);
    // One pixel of slack, as a self-sizing label leaves room for its text.
    return zel::PixelsToTwips(QFontMetrics(f).horizontalAdvance(text) + 1);
}

void zelLabelledField::LayoutFrame()
{
    if (m_busy)
        return;
    m_busy = true;
    zel::Trail t(this, "UserControl_Resize");
    const bool ok = t.Run([&] {
        if (height() != zel::TwipsToPixels(zelFrameHeight))
            setFixedHeight(zel::TwipsToPixels(zelFrameHeight));
        const zelFrameLayout l =
            zelLayoutFrame(m_props, zel::PixelsToTwips(width()),
                           [this](const QString &s, bool b) { return measure(s, b); });

        QFont pf = font();
        pf.setBold(m_props.PrefixBold);
        m_lblPrefix->setFont(pf);
        m_lblPrefix->setText(l.PrefixText);
        m_lblPrefix->setAlignment(toQtAlignment(m_props.PrefixAlignment));
        m_lblPrefix->setGeometry(zel::TwipsToPixels(l.PrefixRect));
        m_lblPrefix->setVisible(l.PrefixVisible);

        QFont sf = font();
        sf.setBold(m_props.SuffixBold);
        m_lblSuffix->setFont(sf);
        m_lblSuffix->setText(l.SuffixText);
        m_lblSuffix->setAlignment(toQtAlignment(m_props.SuffixAlignment));
        m_lblSuffix->setGeometry(zel::TwipsToPixels(l.SuffixRect));
        m_lblSuffix->setVisible(l.SuffixVisible);

        PlaceInput(l.InputRect);
        m_layout = l;
    });
    // A failed layout leaves the flag set, so that later resizes of this
    // control do nothing rather than fail again and again.
    if (ok)
        m_busy = false;
}

void zelLabelledField::PlaceInput(const QRect &twips)
{
    if (m_input)
        m_input->setGeometry(zel::TwipsToPixels(twips));
}

void zelLabelledField::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    LayoutFrame();
}

void zelLabelledField::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        LayoutFrame();
}

bool zelLabelledField::RouteTypedKey(QKeyEvent *event, QLineEdit *edit,
                                     const std::function<void(qint16 &)> &handler)
{
    const qint16 original = zel::KeyAscii(event);
    if (original == 0)
        return false;
    qint16 key = original;
    handler(key);
    if (key == original)
        return false;
    if (key >= 32)
        edit->insert(QString(QChar(char16_t(key))));
    return true;
}

void zelLabelledField::PaintInput(QWidget *input, bool enabled, bool faceBackground)
{
    QPalette pal = input->palette();
    pal.setColor(QPalette::Base,
                 zel::ToQColor(faceBackground ? zel::SysButtonFace : zel::SysWindowBackground));
    pal.setColor(QPalette::Text, zel::ToQColor(enabled ? zel::SysWindowText : zel::SysGrayText));
    input->setPalette(pal);
}

void zelLabelledField::ApplyEnterAsTab(qint16 &KeyAscii, QWidget *from)
{
    if (KeyAscii == 13 && m_props.SendKeysTab) {
        zel::platform().SendTab(from);
        KeyAscii = 0;
    }
}

template <typename Apply>
void zelLabelledField::setFrame(const char *procedure, const char *name, Apply apply, bool relayout)
{
    zel::Trail t(this, procedure);
    t.Run([&] {
        apply();
        MarkChanged(QString::fromLatin1(name));
        if (relayout)
            LayoutFrame();
    });
}

void zelLabelledField::SetPrefix(const QString &v)
{
    setFrame("Prefix Let", "Prefix", [&] { m_props.Prefix = v; });
}

void zelLabelledField::SetPrefixAlignment(const QVariant &v)
{
    setFrame("PrefixAlignment Let", "PrefixAlignment",
             [&] { m_props.PrefixAlignment = checkedAlignment(v); });
}

void zelLabelledField::SetPrefixWidth(const QVariant &v)
{
    setFrame("PrefixWidth Let", "PrefixWidth", [&] { m_props.PrefixWidth = zel::CLng(v); });
}

void zelLabelledField::SetPrefixColon(const QVariant &v)
{
    setFrame("PrefixColon Let", "PrefixColon", [&] { m_props.PrefixColon = zel::CBool(v); });
}

void zelLabelledField::SetPrefixBold(const QVariant &v)
{
    setFrame("PrefixBold Let", "PrefixBold", [&] { m_props.PrefixBold = zel::CBool(v); });
}

void zelLabelledField::SetSuffix(const QString &v)
{
    setFrame("Suffix Let", "Suffix", [&] { m_props.Suffix = v; });
}

void zelLabelledField::SetSuffixAlignment(const QVariant &v)
{
    setFrame("SuffixAlignment Let", "SuffixAlignment",
             [&] { m_props.SuffixAlignment = checkedAlignment(v); });
}

void zelLabelledField::SetSuffixWidth(const QVariant &v)
{
    setFrame("SuffixWidth Let", "SuffixWidth", [&] { m_props.SuffixWidth = zel::CLng(v); });
}

void zelLabelledField::SetSuffixParens(const QVariant &v)
{
    setFrame("SuffixParens Let", "SuffixParens", [&] { m_props.SuffixParens = zel::CBool(v); });
}

void zelLabelledField::SetSuffixBold(const QVariant &v)
{
    setFrame("SuffixBold Let", "SuffixBold", [&] { m_props.SuffixBold = zel::CBool(v); });
}

void zelLabelledField::SetMargin(const QVariant &v)
{
    setFrame("Margin Let", "Margin", [&] { m_props.Margin = zel::CLng(v); });
}

void zelLabelledField::SetWidth(const QVariant &v)
{
    setFrame(
        "Width Let", "Width", [&] { m_props.Width = zel::CInt(v); }, false);
}

void zelLabelledField::SetSendKeysTab(const QVariant &v)
{
    setFrame(
        "SendKeysTab Let", "SendKeysTab", [&] { m_props.SendKeysTab = zel::CBool(v); }, false);
}

void zelLabelledField::ReadFrameProperties(zelPropertyBag &bag, FrameKeys keys)
{
    zel::PropertyReader r(bag, this);
    const bool wide = keys == FrameKeys::Long;
    // Wide numbers may come back as text ("1200"); the reader converts them.
    auto number = [&](const char *key, qint32 def) -> qint32 {
        return wide ? r.Long(QString::fromLatin1(key), def)
                    : r.Int(QString::fromLatin1(key), qint16(def));
    };
    auto alignment = [&](const char *key, qint16 def) -> qint16 {
        const qint32 a =
            wide ? r.Int(QString::fromLatin1(key), def) : r.Long(QString::fromLatin1(key), def);
        return a >= 0 && a <= 2 ? qint16(a) : def;
    };
    // The label members are stored without a layout each; the Margin setter
    // lays out once with all of them in place.
    m_props.Prefix = r.String(QStringLiteral("Prefix"), QString());
    m_props.PrefixWidth = number("PrefixWidth", 0);
    m_props.PrefixColon = r.Bool(QStringLiteral("PrefixColon"), false);
    m_props.PrefixAlignment = alignment("PrefixAlignment", 1);
    m_props.PrefixBold = r.Bool(QStringLiteral("PrefixBold"), false);
    m_props.Suffix = r.String(QStringLiteral("Suffix"), QString());
    m_props.SuffixWidth = number("SuffixWidth", 0);
    m_props.SuffixParens = r.Bool(QStringLiteral("SuffixParens"), false);
    m_props.SuffixAlignment = alignment("SuffixAlignment", 0);
    m_props.SuffixBold = r.Bool(QStringLiteral("SuffixBold"), false);
    SetWidth(r.Int(QStringLiteral("Width"), 0));
    SetMargin(number("Margin", 60));
    SetSendKeysTab(r.Bool(QStringLiteral("SendKeysTab"), true));
}

void zelLabelledField::WriteFrameProperties(zelPropertyBag &bag, FrameKeys keys) const
{
    const bool wide = keys == FrameKeys::Long;
    auto number = [&](qint32 v) { return wide ? QVariant(v) : QVariant::fromValue(qint16(v)); };
    bag.WriteProperty(QStringLiteral("Prefix"), m_props.Prefix, QString());
    bag.WriteProperty(QStringLiteral("PrefixWidth"), number(m_props.PrefixWidth), 0);
    bag.WriteProperty(QStringLiteral("PrefixColon"), m_props.PrefixColon, false);
    bag.WriteProperty(QStringLiteral("PrefixAlignment"), m_props.PrefixAlignment, 1);
    bag.WriteProperty(QStringLiteral("PrefixBold"), m_props.PrefixBold, false);
    bag.WriteProperty(QStringLiteral("Suffix"), m_props.Suffix, QString());
    bag.WriteProperty(QStringLiteral("SuffixWidth"), number(m_props.SuffixWidth), 0);
    bag.WriteProperty(QStringLiteral("SuffixParens"), m_props.SuffixParens, false);
    bag.WriteProperty(QStringLiteral("SuffixAlignment"), m_props.SuffixAlignment, 0);
    bag.WriteProperty(QStringLiteral("SuffixBold"), m_props.SuffixBold, false);
    bag.WriteProperty(QStringLiteral("Width"), m_props.Width, 0);
    bag.WriteProperty(QStringLiteral("Margin"), number(m_props.Margin), 60);
    bag.WriteProperty(QStringLiteral("SendKeysTab"), m_props.SendKeysTab, true);
}
