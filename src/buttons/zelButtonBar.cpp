#include "buttons/zelButtonBar.h"

#include "core/zelConvert.h"
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
qint32 buttonSize(qint32 n)
{
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
    // A new bar reads in English, though it holds no language yet.
    applyLanguage();
    LayoutBar();
}

zelButtonBar::~zelButtonBar() = default;

std::vector<zel::zelPropertyDecl> zelButtonBar::SharedProperties()
{
    using B = zelButtonBar;
    using zel::Prop;
    return {
        Prop("ButtonHeight", &B::ButtonHeight, &B::SetButtonHeight)
            .Persist()
            .Default(zelBarDefaultHeight)
            .With(zel::Init)
            .Refreshes(RefreshLayout),
        Prop("ButtonWidth", &B::ButtonWidth, &B::SetButtonWidth)
            .Persist()
            .Default(zelBarDefaultWidth)
            .With(zel::Init)
            .Refreshes(RefreshLayout),
        Prop("ButtonsVisible", &B::ButtonsVisible, &B::SetButtonsVisible)
            .Persist()
            .Default(zelBarDefaultBits)
            .With(zel::Init)
            .Refreshes(RefreshLayout),
        Prop("ButtonsEnabled", &B::ButtonsEnabled, &B::SetButtonsEnabled)
            .Persist()
            .Default(zelBarDefaultBits)
            .With(zel::Init)
            .Refreshes(RefreshLayout),
    };
}

zel::zelPropertyDecl zelButtonBar::LanguageProperty()
{
    using B = zelButtonBar;
    // Read last, after any stored width: the language writes its own width
    // (1080 or 1200) without marking ButtonWidth, and a new bar holds no
    // language, so the one loaded always takes effect. A German bar thus
    // comes up with buttons 1200 wide and an English one 1080, whatever width
    // was stored; only another language keeps the stored width. The classic
    // setter never marked Language itself either.
    return zel::Prop("Language", &B::Language, &B::SetLanguage)
        .Persist()
        .Default(QStringLiteral("English"))
        .With(zel::Init | zel::NoMark)
        .Refreshes(RefreshLanguage | RefreshLayout);
}

void zelButtonBar::Refresh(quint32 what)
{
    if (what & RefreshLanguage)
        applyLanguage();
    if (what & RefreshLayout)
        LayoutBar();
}

void zelButtonBar::applyLanguage()
{
    switch (zelClassifyLanguage(m_language)) {
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
}

void zelButtonBar::applyCaptions(const zelBarCaptions &c)
{
    m_buttons[0]->setText(c.Help);
    m_buttons[1]->setText(c.SecondNow);
    m_buttons[2]->setText(c.Third);
    m_mainCaption = c.Main;
    m_mainAltCaption = c.MainAlt;
    m_secondCaption = c.Second;
    m_secondAltCaption = c.SecondAlt;
    // Straight into the member: the language's width is no width a host set.
    m_buttonWidth = c.ButtonWidth;
}

QString zelButtonBar::Language() const
{
    return m_language.isEmpty() ? QStringLiteral("English") : m_language;
}

void zelButtonBar::SetLanguage(const QString &v)
{
    Let(
        "Language", m_language,
        [&] {
            const QString language = v.isEmpty() ? QStringLiteral("English") : v;
            // The language held, in other letters, is no change: the spelling
            // first set stays.
            return language.compare(m_language, Qt::CaseInsensitive) == 0 ? m_language : language;
        },
        [] {});
}

void zelButtonBar::SetButtonHeight(qint32 v)
{
    Let(
        "ButtonHeight", m_buttonHeight, [&] { return buttonSize(v); }, [] {});
}

void zelButtonBar::SetButtonWidth(qint32 v)
{
    Let(
        "ButtonWidth", m_buttonWidth, [&] { return buttonSize(v); }, [] {});
}

void zelButtonBar::SetButtonsVisible(qint32 v)
{
    Let("ButtonsVisible", m_visible, v);
}

void zelButtonBar::SetButtonsEnabled(qint32 v)
{
    Let("ButtonsEnabled", m_enabled, v);
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
        setFixedSize(zel::TwipsToPixels(QRect(QPoint(0, 0), l.Size)).size());
        m_buttons[3]->setText(m_mainAlt ? m_mainAltCaption : m_mainCaption);
        m_buttons[1]->setText(m_secondAlt ? m_secondAltCaption : m_secondCaption);
        for (int slot = 0; slot < zelBarSlots; ++slot) {
            const zelBarButtonPlace &p = l.Buttons[size_t(slot)];
            QPushButton *b = m_buttons[size_t(slot)];
            if (p.Visible) {
                b->setEnabled(p.Enabled);
                const QRect px = zel::TwipsToPixels(p.Rect);
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
