#include "buttons/zelButtonBar.h"

#include "core/zelConvert.h"
#include "core/zelPropertyReader.h"
#include "core/zelTrail.h"
#include "platform/zelPlatform.h"

#include <QFileInfo>
#include <QIcon>
#include <QImage>
#include <QPixmap>
#include <QPushButton>

int zelBarCount(qint32 bits)
{
    int n = 0;
    for (int slot = 0; slot < zelBarSlots; ++slot)
        if (bits & zelBarBit(slot))
            ++n;
    return n;
}

zelButtonBarLayout zelLayoutButtonBar(qint32 visible, qint32 enabled, qint32 buttonWidth,
                                      qint32 buttonHeight)
{
    zelButtonBarLayout l;
    l.Count = zelBarCount(visible);
    if (l.Count == 0)
        return l; // a 0 by 0 bar; the buttons stay as they are

    const qint32 pitch = zel::CheckedAdd<qint32>(buttonWidth, zelBarGap);
    const qint32 width =
        zel::CheckedSub<qint32>(zel::CheckedMul<qint32>(l.Count, pitch), zelBarGap);
    l.Size = QSize(width, buttonHeight);

    // PlaceOneButton, from the right edge: each visible button ends 120
    // twips left of the previous one's left edge.
    qint32 x = zel::CheckedAdd<qint32>(width, zelBarGap);
    for (int slot = 0; slot < zelBarSlots; ++slot) {
        zelBarButtonPlace &p = l.Buttons[size_t(slot)];
        const qint32 bit = zelBarBit(slot);
        if (!(visible & bit))
            continue;
        p.Visible = true;
        p.Enabled = (enabled & bit) != 0;
        const qint32 left = x - zelBarGap - buttonWidth;
        p.Rect = QRect(left, 0, buttonWidth, buttonHeight);
        x = left;
    }
    return l;
}

zelBarLanguage zelClassifyLanguage(const QString &language)
{
    const QString l = language.toLower();
    if (l.isEmpty() || l == QLatin1String("english"))
        return zelBarLanguage::English;
    if (l == QLatin1String("german") || l == QLatin1String("deutsch"))
        return zelBarLanguage::German;
    return zelBarLanguage::Other;
}

namespace {

// A button size in twips as the setters take it.
qint32 buttonSize(const QVariant &v)
{
    const qint32 n = zel::CLng(v);
    if (n < 0 || n > zelBarMaxButtonSize)
        throw zelError(zelError::InvalidPropertyValue);
    return n;
}

QPixmap loadPictureFile(const QString &fileName)
{
    if (!QFileInfo::exists(fileName))
        throw zelError(53, {}, QStringLiteral("File not found: ") + fileName);
    QPixmap pm(fileName);
    if (pm.isNull())
        throw zelError(481, {}, QStringLiteral("Invalid picture: ") + fileName);
    return pm;
}

// The rectangle in pixels whose edges are the twips edges converted, so
// that neighbouring buttons keep their gap whatever the rounding.
QRect toPixels(const QRect &twips)
{
    const int left = zel::TwipsToPixels(twips.x());
    const int top = zel::TwipsToPixels(twips.y());
    const int right = zel::TwipsToPixels(double(twips.x()) + twips.width());
    const int bottom = zel::TwipsToPixels(double(twips.y()) + twips.height());
    return QRect(left, top, right - left, bottom - top);
}

} // namespace

zelButtonBar::zelButtonBar(const zelButtonBarKind &kind, QWidget *parent)
    : QWidget(parent), m_kind(kind)
{
    for (int slot = 0; slot < zelBarSlots; ++slot) {
        auto *b = new QPushButton(this);
        b->setObjectName(slot < zelBarFirstOption
                             ? QString::fromLatin1(kind.Names[size_t(slot)])
                             : QStringLiteral("cmdOption%1").arg(slot - zelBarFirstOption));
        b->setAutoDefault(false);
        connect(b, &QPushButton::clicked, this, [this, slot] { buttonClicked(slot); });
        m_buttons[size_t(slot)] = b;
    }
    // A new bar reads in English until a host or its store says otherwise.
    SetLanguage(QStringLiteral("English"));
}

void zelButtonBar::resetLanguage()
{
    // As a newly created bar: English captions, but no language set yet, so
    // that the next Language setting writes its captions and width whatever
    // the bar showed before.
    applyCaptions(m_kind.English);
    m_german = false;
    m_language.clear();
}

zelButtonBar::~zelButtonBar() = default;

void zelButtonBar::applyCaptions(const zelBarCaptions &c)
{
    m_buttons[0]->setText(c.Help);
    m_buttons[1]->setText(c.SecondNow);
    m_buttons[2]->setText(c.Third);
    m_mainCaption = c.Main;
    m_mainAltCaption = c.MainAlt;
    m_secondCaption = c.Second;
    m_secondAltCaption = c.SecondAlt;
    // Not marked changed: the width follows the language, and the language
    // is read back last, after any stored width.
    m_buttonWidth = c.ButtonWidth;
}

void zelButtonBar::SetLanguage(const QString &v)
{
    zel::Trail t(this, "Language Let");
    t.Run([&] {
        const QString language = v.isEmpty() ? QStringLiteral("English") : v;
        if (language.compare(m_language, Qt::CaseInsensitive) == 0)
            return;
        m_language = language;
        switch (zelClassifyLanguage(language)) {
        case zelBarLanguage::English:
            m_german = false;
            applyCaptions(m_kind.English);
            break;
        case zelBarLanguage::German:
            m_german = true;
            applyCaptions(m_kind.German);
            break;
        case zelBarLanguage::Other:
            if (m_kind.OtherLanguageClearsGerman)
                m_german = false;
            break;
        }
        LayoutBar();
    });
}

void zelButtonBar::SetButtonHeight(const QVariant &v)
{
    zel::Trail t(this, "ButtonHeight Let");
    t.Run([&] {
        m_buttonHeight = buttonSize(v);
        MarkChanged(QStringLiteral("ButtonHeight"));
        LayoutBar();
    });
}

void zelButtonBar::SetButtonWidth(const QVariant &v)
{
    zel::Trail t(this, "ButtonWidth Let");
    t.Run([&] {
        m_buttonWidth = buttonSize(v);
        MarkChanged(QStringLiteral("ButtonWidth"));
        LayoutBar();
    });
}

void zelButtonBar::SetButtonsVisible(const QVariant &v)
{
    zel::Trail t(this, "ButtonsVisible Let");
    t.Run([&] {
        m_visible = zel::CLng(v);
        MarkChanged(QStringLiteral("ButtonsVisible"));
        LayoutBar();
    });
}

void zelButtonBar::SetButtonsEnabled(const QVariant &v)
{
    zel::Trail t(this, "ButtonsEnabled Let");
    t.Run([&] {
        m_enabled = zel::CLng(v);
        MarkChanged(QStringLiteral("ButtonsEnabled"));
        LayoutBar();
    });
}

void zelButtonBar::ChangeEnabledBits(qint32 eButton, bool bEnabled)
{
    zel::Trail t(this, "ChangeEnabledButtons");
    t.Run([&] { SetButtonsEnabled(zelBarWithBits(m_enabled, eButton, bEnabled)); });
}

void zelButtonBar::ChangeVisibleBits(qint32 eButton, bool bVisible)
{
    zel::Trail t(this, "ChangeVisibleButtons");
    t.Run([&] { SetButtonsVisible(zelBarWithBits(m_visible, eButton, bVisible)); });
}

QPushButton *zelButtonBar::optionButton(qint32 index) const
{
    if (index < 0 || index >= zelBarSlots - zelBarFirstOption)
        throw zelError(zelError::SubscriptOutOfRange);
    return m_buttons[size_t(zelBarFirstOption + index)];
}

QString zelButtonBar::OptionButtonCaption(qint32 Index) const
{
    QString caption;
    zel::Trail t(this, "OptionButtonCaption Get");
    t.Run([&] { caption = optionButton(Index)->text(); });
    return caption;
}

void zelButtonBar::SetOptionButtonCaption(qint32 Index, const QString &sCaption)
{
    zel::Trail t(this, "OptionButtonCaption Let");
    t.Run([&] { optionButton(Index)->setText(sCaption); });
}

void zelButtonBar::SetOptionButtonPicture(qint32 Index, const QString &sFileName)
{
    zel::Trail t(this, "OptionButtonPicture Let");
    t.Run([&] {
        QPushButton *b = optionButton(Index);
        b->setIcon(sFileName.isEmpty() ? QIcon() : QIcon(loadPictureFile(sFileName)));
    });
}

bool zelButtonBar::LoadOptionButtonPicture(qint32 Index, const QVariant &oPicture)
{
    bool loaded = false;
    zel::Trail t(this, "LoadOptionButtonPicture");
    t.Run([&] {
        QPushButton *b = optionButton(Index);
        QIcon icon;
        switch (oPicture.metaType().id()) {
        case QMetaType::UnknownType:
            return;
        case QMetaType::QIcon:
            icon = oPicture.value<QIcon>();
            break;
        case QMetaType::QPixmap: {
            const QPixmap pm = oPicture.value<QPixmap>();
            if (!pm.isNull())
                icon = QIcon(pm);
            break;
        }
        case QMetaType::QImage: {
            const QImage img = oPicture.value<QImage>();
            if (!img.isNull())
                icon = QIcon(QPixmap::fromImage(img));
            break;
        }
        case QMetaType::QString:
            if (!oPicture.toString().isEmpty())
                icon = QIcon(loadPictureFile(oPicture.toString()));
            break;
        default:
            throw zelError(zelError::TypeMismatch);
        }
        if (icon.isNull())
            return;
        b->setIcon(icon);
        loaded = true;
    });
    return loaded;
}

void zelButtonBar::LayoutBar()
{
    zel::Trail t(this, "UserControl_Resize");
    t.Run([&] {
        const zelButtonBarLayout l =
            zelLayoutButtonBar(m_visible, m_enabled, m_buttonWidth, m_buttonHeight);
        if (l.Count == 0) {
            setFixedSize(0, 0);
            m_layout = l;
            return;
        }
        if (m_busy)
            return;
        m_busy = true;
        setFixedSize(toPixels(QRect(QPoint(0, 0), l.Size)).size());
        m_buttons[3]->setText(m_mainAlt ? m_mainAltCaption : m_mainCaption);
        m_buttons[1]->setText(m_secondAlt ? m_secondAltCaption : m_secondCaption);
        for (int slot = 0; slot < zelBarSlots; ++slot) {
            const zelBarButtonPlace &p = l.Buttons[size_t(slot)];
            QPushButton *b = m_buttons[size_t(slot)];
            if (p.Visible) {
                b->setEnabled(p.Enabled);
                const QRect px = toPixels(p.Rect);
                b->setGeometry(px);
                // A picture keeps clear of the button's frame.
                const int side = qBound(0, px.height() - 6, 16);
                b->setIconSize(QSize(side, side));
            }
            b->setVisible(p.Visible);
        }
        m_layout = l;
        m_busy = false;
    });
}

void zelButtonBar::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    LayoutBar();
}

void zelButtonBar::buttonClicked(int slot)
{
    // Each handler names itself after its button; the option buttons share one.
    const QString handler = slot < zelBarFirstOption
                                ? QString::fromLatin1(m_kind.Names[size_t(slot)])
                                : QStringLiteral("cmdOption");
    zel::Trail t(QString::fromLatin1(metaObject()->className()) + QLatin1Char('.') + handler +
                 QStringLiteral("_Click"));
    t.Run([&] { RaiseClick(slot); });
}

void zelButtonBar::InitProperties()
{
    zel::Trail t(this, "UserControl_InitProperties");
    t.Run([&] {
        resetLanguage();
        SetButtonHeight(zelBarDefaultHeight);
        SetButtonWidth(zelBarDefaultWidth);
        SetButtonsVisible(zelBarDefaultBits);
        SetButtonsEnabled(zelBarDefaultBits);
        InitOwnProperties();
        SetLanguage(QStringLiteral("English"));
    });
}

void zelButtonBar::ReadProperties(zelPropertyBag &bag)
{
    zel::Trail t(this, "UserControl_ReadProperties");
    t.Run([&] {
        zel::PropertyReader r(bag, this);
        // A form loads into a new bar: the stored language, read last, then
        // always sets captions and width, whatever width was stored.
        resetLanguage();
        SetButtonHeight(r.Long(QStringLiteral("ButtonHeight"), zelBarDefaultHeight));
        SetButtonWidth(r.Long(QStringLiteral("ButtonWidth"), zelBarDefaultWidth));
        SetButtonsVisible(r.Long(QStringLiteral("ButtonsVisible"), zelBarDefaultBits));
        SetButtonsEnabled(r.Long(QStringLiteral("ButtonsEnabled"), zelBarDefaultBits));
        ReadOwnProperties(r);
        SetLanguage(r.String(QStringLiteral("Language"), QStringLiteral("English")));
    });
}

void zelButtonBar::WriteProperties(zelPropertyBag &bag) const
{
    zel::Trail t(this, "UserControl_WriteProperties");
    t.Run([&] {
        bag.WriteProperty(QStringLiteral("ButtonHeight"), m_buttonHeight, zelBarDefaultHeight);
        bag.WriteProperty(QStringLiteral("ButtonWidth"), m_buttonWidth, zelBarDefaultWidth);
        bag.WriteProperty(QStringLiteral("ButtonsVisible"), m_visible, zelBarDefaultBits);
        bag.WriteProperty(QStringLiteral("ButtonsEnabled"), m_enabled, zelBarDefaultBits);
        WriteOwnProperties(bag);
        bag.WriteProperty(QStringLiteral("Language"), m_language, QStringLiteral("English"));
    });
}
