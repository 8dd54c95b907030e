#include "core/zelFieldFrame.h"

#include "core/zelConvert.h"
#include "core/zelKeys.h"
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

namespace {

qint16 checkedAlignment(qint16 a)
{
    if (a < 0 || a > 2)
        throw zelError(zelError::InvalidPropertyValue);
    return a;
}

} // namespace

void zelLabelledField::Refresh(quint32 what)
{
    if (what & RefreshLayout)
        LayoutFrame();
}

void zelLabelledField::SetPrefix(const QString &v)
{
    Let("Prefix", m_props.Prefix, v);
}

void zelLabelledField::SetPrefixAlignment(qint16 v)
{
    Let(
        "PrefixAlignment", m_props.PrefixAlignment, [&] { return checkedAlignment(v); }, [] {});
}

void zelLabelledField::SetPrefixWidth(qint32 v)
{
    Let("PrefixWidth", m_props.PrefixWidth, v);
}

void zelLabelledField::SetPrefixColon(bool v)
{
    Let("PrefixColon", m_props.PrefixColon, v);
}

void zelLabelledField::SetPrefixBold(bool v)
{
    Let("PrefixBold", m_props.PrefixBold, v);
}

void zelLabelledField::SetSuffix(const QString &v)
{
    Let("Suffix", m_props.Suffix, v);
}

void zelLabelledField::SetSuffixAlignment(qint16 v)
{
    Let(
        "SuffixAlignment", m_props.SuffixAlignment, [&] { return checkedAlignment(v); }, [] {});
}

void zelLabelledField::SetSuffixWidth(qint32 v)
{
    Let("SuffixWidth", m_props.SuffixWidth, v);
}

void zelLabelledField::SetSuffixParens(bool v)
{
    Let("SuffixParens", m_props.SuffixParens, v);
}

void zelLabelledField::SetSuffixBold(bool v)
{
    Let("SuffixBold", m_props.SuffixBold, v);
}

void zelLabelledField::SetMargin(qint32 v)
{
    Let("Margin", m_props.Margin, v);
}

void zelLabelledField::SetWidth(qint16 v)
{
    Let("Width", m_props.Width, v);
}

void zelLabelledField::SetSendKeysTab(bool v)
{
    Let("SendKeysTab", m_props.SendKeysTab, v);
}

std::vector<zel::zelPropertyDecl> zelLabelledField::FrameProperties(FrameKeys keys)
{
    using F = zelLabelledField;
    using zel::Kind;
    using zel::Prop;
    const bool wide = keys == FrameKeys::Long;
    const Kind number = wide ? Kind::Int32 : Kind::Int16;
    const Kind alignment = wide ? Kind::Int16 : Kind::Int32;
    const quint32 label = zel::StoreOnLoad;
    return {
        Prop("Prefix", &F::Prefix, &F::SetPrefix).Persist().Refreshes(RefreshLayout).With(label),
        Prop("PrefixWidth", &F::PrefixWidth, &F::SetPrefixWidth)
            .Persist()
            .StoredAs(number)
            .Refreshes(RefreshLayout)
            .With(label),
        Prop("PrefixColon", &F::PrefixColon, &F::SetPrefixColon)
            .Persist()
            .Refreshes(RefreshLayout)
            .With(label),
        Prop("PrefixAlignment", &F::PrefixAlignment, &F::SetPrefixAlignment)
            .Persist()
            .StoredAs(alignment)
            .Default(qint16(1))
            .Refreshes(RefreshLayout)
            .With(label),
        Prop("PrefixBold", &F::PrefixBold, &F::SetPrefixBold)
            .Persist()
            .Refreshes(RefreshLayout)
            .With(label),
        Prop("Suffix", &F::Suffix, &F::SetSuffix).Persist().Refreshes(RefreshLayout).With(label),
        Prop("SuffixWidth", &F::SuffixWidth, &F::SetSuffixWidth)
            .Persist()
            .StoredAs(number)
            .Refreshes(RefreshLayout)
            .With(label),
        Prop("SuffixParens", &F::SuffixParens, &F::SetSuffixParens)
            .Persist()
            .Refreshes(RefreshLayout)
            .With(label),
        Prop("SuffixAlignment", &F::SuffixAlignment, &F::SetSuffixAlignment)
            .Persist()
            .StoredAs(alignment)
            .Refreshes(RefreshLayout)
            .With(label),
        Prop("SuffixBold", &F::SuffixBold, &F::SetSuffixBold)
            .Persist()
            .Refreshes(RefreshLayout)
            .With(label),
        // Width takes no part in the layout and does not run it.
        Prop("Width", &F::Width, &F::SetWidth).Persist(),
        // Margin takes no part in the layout, but runs it all the same.
        Prop("Margin", &F::Margin, &F::SetMargin)
            .Persist()
            .StoredAs(number)
            .Default(qint32(60))
            .Refreshes(RefreshLayout),
        Prop("SendKeysTab", &F::SendKeysTab, &F::SetSendKeysTab).Persist().Default(true),
    };
}
