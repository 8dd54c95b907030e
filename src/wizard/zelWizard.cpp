#include "wizard/zelWizard.h"

#include "core/zelTrail.h"
#include "platform/zelLateBinding.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"
#include "wizard/zelPaneContract.h"

#include <QBuffer>
#include <QEvent>
#include <QLabel>
#include <QPainter>
#include <QProgressBar>
#include <QPushButton>

ZEL_REGISTER_PROGID(zelWizard);

namespace {

quint32 checkedColour(quint32 v)
{
    if (v > 0x00FFFFFFu && (v & 0xFFFFFF00u) != 0x80000000u)
        throw zelError(zelError::InvalidPropertyValue);
    return v;
}

// Pictures and fonts keep their own store format: a picture as PNG in
// base64, a font as Qt writes it.
QString pictureText(const QPixmap &p)
{
    if (p.isNull())
        return {};
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    p.save(&buffer, "PNG");
    return QString::fromLatin1(bytes.toBase64());
}

QPixmap readPicture(const QVariant &v, const QString &trail)
{
    QPixmap p;
    if (v.metaType().id() != QMetaType::QString ||
        !p.loadFromData(QByteArray::fromBase64(v.toString().toLatin1()), "PNG"))
        throw zelError(zelError::TypeMismatch, trail, QStringLiteral("Not a picture"));
    return p;
}

QFont readFont(const QVariant &v, const QString &trail)
{
    QFont f;
    if (v.metaType().id() != QMetaType::QString || !f.fromString(v.toString()))
        throw zelError(zelError::TypeMismatch, trail, QStringLiteral("Not a font"));
    return f;
}

void fill(QWidget *w, quint32 colour)
{
    w->setAutoFillBackground(true);
    QPalette pal = w->palette();
    pal.setColor(QPalette::Window, zel::ToQColor(colour));
    w->setPalette(pal);
}

} // namespace

zelWizard::zelWizard(QWidget *parent)
    : QWidget(parent), m_imgWizard(new QLabel(this)), m_picHeader(new QWidget(this)),
      m_lblUserInformation(new QLabel(m_picHeader)), m_lblDescription(new QLabel(m_picHeader)),
      m_picHeaderPicture(new QLabel(m_picHeader)), m_fraBottomBack(new QWidget(this)),
      m_cmdBack(new QPushButton(m_fraBottomBack)), m_cmdNext(new QPushButton(m_fraBottomBack)),
      m_cmdFinish(new QPushButton(m_fraBottomBack)), m_cmdCancel(new QPushButton(m_fraBottomBack)),
      m_lblComment(new QLabel(m_fraBottomBack)), m_lblProgress(new QLabel(m_fraBottomBack)),
      m_prbProgress(new QProgressBar(m_fraBottomBack))
{
    m_imgWizard->setObjectName(QStringLiteral("imgWizard"));
    m_picHeader->setObjectName(QStringLiteral("picHeader"));
    m_lblUserInformation->setObjectName(QStringLiteral("lblUserInformation"));
    m_lblDescription->setObjectName(QStringLiteral("lblDescription"));
    m_picHeaderPicture->setObjectName(QStringLiteral("picHeaderPicture"));
    m_fraBottomBack->setObjectName(QStringLiteral("fraBottomBack"));
    m_cmdBack->setObjectName(QStringLiteral("cmdBack"));
    m_cmdNext->setObjectName(QStringLiteral("cmdNext"));
    m_cmdFinish->setObjectName(QStringLiteral("cmdFinish"));
    m_cmdCancel->setObjectName(QStringLiteral("cmdCancel"));
    m_lblComment->setObjectName(QStringLiteral("lblComment"));
    m_lblProgress->setObjectName(QStringLiteral("lblProgress"));
    m_prbProgress->setObjectName(QStringLiteral("prbProgress"));

    m_imgWizard->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_lblDescription->setWordWrap(true);
    m_lblDescription->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    m_picHeaderPicture->setScaledContents(true);
    m_lblProgress->hide();
    m_prbProgress->hide();
    m_prbProgress->setRange(0, 10000);
    m_prbProgress->setTextVisible(false);
    m_picHeader->hide();
    setFocusPolicy(Qt::StrongFocus);

    connect(m_cmdBack, &QPushButton::clicked, this, [this] { cmdBack_Click(); });
    connect(m_cmdNext, &QPushButton::clicked, this, [this] { cmdNext_Click(); });
    connect(m_cmdFinish, &QPushButton::clicked, this, [this] { cmdFinish_Click(); });
    connect(m_cmdCancel, &QPushButton::clicked, this, [this] { cmdCancel_Click(); });

    m_cmdFinish->hide(); // a wizard without a pane offers no Finish
    applyColours();
    applyCaptions();
    layoutWizard(true);
}

zelWizard::~zelWizard() = default;

const zel::zelPropertyTable &zelWizard::Properties() const
{
    using W = zelWizard;
    using zel::Prop;
    static const zel::zelPropertyTable table({
        Prop("BackButtonText", &W::BackButtonText, &W::SetBackButtonText)
            .Persist()
            .Default(QStringLiteral("&Back"))
            .With(zel::Init),
        Prop("FinishButtonText", &W::FinishButtonText, &W::SetFinishButtonText)
            .Persist()
            .Default(QStringLiteral("&Finish"))
            .With(zel::Init),
        Prop("CancelButtonText", &W::CancelButtonText, &W::SetCancelButtonText)
            .Persist()
            .Default(QStringLiteral("&Cancel"))
            .With(zel::Init),
        Prop("NextButtonText", &W::NextButtonText, &W::SetNextButtonText)
            .Persist()
            .Default(QStringLiteral("&Next"))
            .With(zel::Init),
        Prop("BackColor", &W::BackColor, &W::SetBackColor)
            .Persist()
            .Default(quint32(0x8000000F))
            .With(zel::Init),
        Prop("PictureWidth", &W::PictureWidth, &W::SetPictureWidth)
            .Persist()
            .Default(zelWizardPictureWidth)
            .With(zel::Init),
        Prop("HeaderBackColor", &W::HeaderBackColor, &W::SetHeaderBackColor)
            .Persist()
            .Default(quint32(0x00FFFFFF))
            .With(zel::Init),
        Prop("HeaderHeight", &W::HeaderHeight, &W::SetHeaderHeight)
            .Persist()
            .Default(zelWizardHeaderHeight)
            .With(zel::Init),
        Prop("Language", &W::Language, &W::SetLanguage),
        Prop("HelpFile", &W::HelpFile, &W::SetHelpFile),
        Prop("HelpContextID", &W::HelpContextID, &W::SetHelpContextID),
        Prop("HelpButtonText", &W::HelpButtonText, &W::SetHelpButtonText),
        Prop("PictureBackColor", &W::PictureBackColor, &W::SetPictureBackColor),
        Prop("Enabled", &W::Enabled, &W::SetEnabled),
        Prop("CurrentPane", &W::CurrentPane),
        Prop("Comment", &W::Comment, &W::SetComment),
    });
    return table;
}

void zelWizard::ReadProperties(zelPropertyBag &bag)
{
    zelPropertyHost::ReadProperties(bag);
    zel::Trail t(this, "UserControl_ReadProperties");
    auto read = [&](const char *key, auto apply) {
        t.Step = QStringLiteral("Reading ") + QLatin1String(key);
        t.Run([&] {
            const QVariant v = bag.ReadProperty(QString::fromLatin1(key), QString());
            if (!v.toString().isEmpty() || v.metaType().id() != QMetaType::QString)
                apply(v);
        });
    };
    read("Picture", [&](const QVariant &v) { SetPicture(readPicture(v, t.Name())); });
    read("HeaderFont", [&](const QVariant &v) { SetHeaderFont(readFont(v, t.Name())); });
    read("HeaderPicture", [&](const QVariant &v) { SetHeaderPicture(readPicture(v, t.Name())); });
}

void zelWizard::WriteProperties(zelPropertyBag &bag) const
{
    zelPropertyHost::WriteProperties(bag);
    bag.WriteProperty(QStringLiteral("Picture"), pictureText(m_picture), QString());
    bag.WriteProperty(QStringLiteral("HeaderFont"),
                      m_ownHeaderFont ? m_headerFont.toString() : QString(), QString());
    bag.WriteProperty(QStringLiteral("HeaderPicture"), pictureText(m_headerPicture), QString());
}

void zelWizard::SetLanguage(const QString &v)
{
    const QString value = v.isEmpty() ? QStringLiteral("en") : v;
    if (value.compare(m_language, Qt::CaseInsensitive) == 0)
        return;
    LetThen("Language", m_language, value, [this] {
        const QString l = m_language.toLower();
        const bool german = l == QLatin1String("german") || l == QLatin1String("deutsch");
        SetCancelButtonText(german ? QStringLiteral("Abbruch") : QStringLiteral("Cancel"));
        SetHelpButtonText(german ? QStringLiteral("&Hilfe") : QStringLiteral("&Help"));
        SetNextButtonText(german ? QStringLiteral("&Weiter") : QStringLiteral("&Next"));
        SetBackButtonText(german ? QStringLiteral("&Zurück") : QStringLiteral("&Back"));
        SetFinishButtonText(german ? QStringLiteral("Fertigstellen") : QStringLiteral("Finish"));
        layoutWizard(true);
    });
}

void zelWizard::SetHelpFile(const QString &v)
{
    Let("HelpFile", m_helpFile, v);
}

void zelWizard::SetHelpContextID(qint32 v)
{
    Let("HelpContextID", m_helpContextID, v);
}

void zelWizard::letColour(const char *name, quint32 &member, quint32 v)
{
    Let(
        name, member, [&] { return checkedColour(v); }, [this] { applyColours(); });
}

void zelWizard::SetBackColor(quint32 v)
{
    letColour("BackColor", m_backColor, v);
}

void zelWizard::SetPictureBackColor(quint32 v)
{
    letColour("PictureBackColor", m_pictureBackColor, v);
}

void zelWizard::SetHeaderBackColor(quint32 v)
{
    letColour("HeaderBackColor", m_headerBackColor, v);
}

void zelWizard::SetBackButtonText(const QString &v)
{
    LetThen("BackButtonText", m_backText, v, [this] { applyCaptions(); });
}

void zelWizard::SetFinishButtonText(const QString &v)
{
    LetThen("FinishButtonText", m_finishText, v, [this] { applyCaptions(); });
}

void zelWizard::SetCancelButtonText(const QString &v)
{
    LetThen("CancelButtonText", m_cancelText, v, [this] { applyCaptions(); });
}

void zelWizard::SetNextButtonText(const QString &v)
{
    LetThen("NextButtonText", m_nextText, v, [this] { applyCaptions(); });
}

void zelWizard::SetHelpButtonText(const QString &v)
{
    Let("HelpButtonText", m_helpText, v);
}

void zelWizard::SetPicture(const QPixmap &v)
{
    zel::Trail t(this, "Picture Set");
    t.Run([&] {
        m_picture = v;
        applyPictures();
        emit PropertyChanged(QStringLiteral("Picture"));
    });
}

void zelWizard::SetHeaderPicture(const QPixmap &v)
{
    zel::Trail t(this, "HeaderPicture Set");
    t.Run([&] {
        m_headerPicture = v;
        applyPictures();
        emit PropertyChanged(QStringLiteral("HeaderPicture"));
    });
}

QFont zelWizard::HeaderFont() const
{
    if (m_ownHeaderFont)
        return m_headerFont;
    QFont f = font();
    f.setBold(true);
    return f;
}

void zelWizard::SetHeaderFont(const QFont &v)
{
    zel::Trail t(this, "HeaderFont Set");
    t.Run([&] {
        m_headerFont = v;
        m_ownHeaderFont = true;
        m_lblUserInformation->setFont(v);
        emit PropertyChanged(QStringLiteral("HeaderFont"));
    });
}

void zelWizard::SetPictureWidth(qint16 v)
{
    Let(
        "PictureWidth", m_pictureWidth,
        [&] {
            if (v < 0)
                throw zelError(zelError::InvalidPropertyValue);
            return v;
        },
        [this] { layoutWizard(true); });
}

void zelWizard::SetHeaderHeight(qint16 v)
{
    Let(
        "HeaderHeight", m_headerHeight,
        [&] {
            if (v < 0)
                throw zelError(zelError::InvalidPropertyValue);
            return v;
        },
        [this] { layoutWizard(true); });
}

void zelWizard::SetEnabled(bool v)
{
    LetThen("Enabled", m_enabled, v, [this] {
        for (QWidget *c : ContainedControls())
            if (zel::OffersPaneEnabled(c))
                zel::SetProperty(c, QStringLiteral("Enabled"), m_enabled);
        placeButtons();
    });
}

void zelWizard::SetComment(const QString &v)
{
    LetThen("Comment", m_comment, v, [this] { m_lblComment->setText(m_comment); });
}

void zelWizard::Refresh(quint32 what)
{
    Q_UNUSED(what);
}

void zelWizard::applyColours()
{
    fill(this, m_backColor);
    fill(m_imgWizard, m_pictureBackColor);
    fill(m_picHeader, m_headerBackColor);
    fill(m_fraBottomBack, m_backColor);
}

void zelWizard::applyCaptions()
{
    m_cmdBack->setText(m_backText);
    m_cmdNext->setText(m_nextText);
    m_cmdFinish->setText(m_finishText);
    m_cmdCancel->setText(m_cancelText);
}

void zelWizard::applyPictures()
{
    m_imgWizard->setPixmap(m_picture);
    m_picHeaderPicture->setPixmap(m_headerPicture);
}

void zelWizard::layoutWizard(bool force)
{
    zel::Trail t(this, "UserControl_Resize");
    t.Run([&] {
        if (!force && size() == m_lastSize)
            return;
        m_lastSize = size();
        const qint32 w = zel::PixelsToTwips(width()), h = zel::PixelsToTwips(height());
        const zelWizardFrameLayout l = zelLayoutWizard(w, h, m_pictureWidth, m_headerHeight);
        m_fraBottomBack->setGeometry(zel::TwipsToPixels(l.Bottom));
        placeButtons();
        m_imgWizard->setGeometry(zel::TwipsToPixels(l.Picture));
        m_picHeader->setGeometry(zel::TwipsToPixels(l.Header));
        m_picHeaderPicture->setGeometry(zel::TwipsToPixels(l.HeaderPicture));
        m_lblUserInformation->setGeometry(zel::TwipsToPixels(l.Title));
        m_lblUserInformation->setFont(HeaderFont());
        m_lblDescription->setGeometry(zel::TwipsToPixels(l.Description));
        if (m_current)
            sizePane();
    });
}

void zelWizard::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    layoutWizard(false);
    zel::Trail t(this, "UserControl_Resize");
    t.Run([&] { emit Resize(); });
}

void zelWizard::paintEvent(QPaintEvent *event)
{
    QWidget::paintEvent(event);
    zel::Trail t(this, "UserControl_Paint");
    t.Run([&] { emit Paint(); });
}

bool zelWizard::event(QEvent *event)
{
    // A font of the form's reaches the header title unless it has its own.
    if (event->type() == QEvent::FontChange && !m_ownHeaderFont)
        m_lblUserInformation->setFont(HeaderFont());
    return QWidget::event(event);
}
