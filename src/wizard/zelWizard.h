#pragma once

// The host control of the wizard framework. The host places panes inside it
// (zelPane, or any widget that answers the pane contract, see
// zelPaneContract.h), names them and chains them through NextPane. At run
// time the wizard shows one pane at a time, framed by a side picture or a
// header band, and drives Back, Next, Finish and Cancel from the pane's Could
// (shown) and Can (usable) properties. Leaving a pane asks the pane first
// (LeavePane) and the host second (LeavingPane); either can veto. Next
// writes the pane being left into the new pane's PreviousPane, so Back
// returns to where one came from.
//
// The panes are the wizard's child widgets, in their order; the wizard's own
// widgets are not among them. Enter acts as Finish, else as Next, when that
// button is shown and usable; Escape raises Cancel.

#include "core/zelProperties.h"
#include "wizard/zelWizardEnums.h"
#include "wizard/zelWizardLayout.h"
#include "zelCtrlExport.h"

#include <QFont>
#include <QPixmap>
#include <QPointer>
#include <QSize>
#include <QWidget>

class QLabel;
class QProgressBar;
class QPushButton;

class ZELCTRL_EXPORT zelWizard : public QWidget, public zelPropertyHost
{
    Q_OBJECT
    Q_PROPERTY(QString Language READ Language WRITE SetLanguage)
    Q_PROPERTY(QString HelpFile READ HelpFile WRITE SetHelpFile)
    Q_PROPERTY(QVariant HelpContextID READ HelpContextID WRITE SetHelpContextID)
    Q_PROPERTY(QVariant BackColor READ BackColor WRITE SetBackColor)
    Q_PROPERTY(QString BackButtonText READ BackButtonText WRITE SetBackButtonText)
    Q_PROPERTY(QString FinishButtonText READ FinishButtonText WRITE SetFinishButtonText)
    Q_PROPERTY(QString CancelButtonText READ CancelButtonText WRITE SetCancelButtonText)
    Q_PROPERTY(QString NextButtonText READ NextButtonText WRITE SetNextButtonText)
    Q_PROPERTY(QString HelpButtonText READ HelpButtonText WRITE SetHelpButtonText)
    Q_PROPERTY(QPixmap Picture READ Picture WRITE SetPicture)
    Q_PROPERTY(QVariant PictureBackColor READ PictureBackColor WRITE SetPictureBackColor)
    Q_PROPERTY(QVariant PictureWidth READ PictureWidth WRITE SetPictureWidth)
    Q_PROPERTY(QVariant HeaderHeight READ HeaderHeight WRITE SetHeaderHeight)
    Q_PROPERTY(QPixmap HeaderPicture READ HeaderPicture WRITE SetHeaderPicture)
    Q_PROPERTY(QFont HeaderFont READ HeaderFont WRITE SetHeaderFont)
    Q_PROPERTY(QVariant HeaderBackColor READ HeaderBackColor WRITE SetHeaderBackColor)
    Q_PROPERTY(QVariant Enabled READ Enabled WRITE SetEnabled)
    Q_PROPERTY(QString CurrentPane READ CurrentPane)
    Q_PROPERTY(QString Comment READ Comment WRITE SetComment)

public:
    explicit zelWizard(QWidget *parent = nullptr);
    ~zelWizard() override;

    // "german" or "deutsch" in any letter case give German captions, any
    // other value English; "" counts as "en". A value equal to the present
    // one in any letter case changes nothing.
    QString Language() const { return m_language; }
    void SetLanguage(const QString &v);
    QString HelpFile() const { return m_helpFile; }
    void SetHelpFile(const QString &v);
    qint32 HelpContextID() const { return m_helpContextID; }
    void SetHelpContextID(qint32 v);
    ZEL_LATE_BOUND(HelpContextID)
    // By default the system button face 0x8000000F.
    quint32 BackColor() const { return m_backColor; }
    void SetBackColor(quint32 v);
    ZEL_LATE_BOUND(BackColor)
    // By default "&Back", "&Finish", "&Cancel", "&Next"; Language sets them.
    QString BackButtonText() const { return m_backText; }
    void SetBackButtonText(const QString &v);
    QString FinishButtonText() const { return m_finishText; }
    void SetFinishButtonText(const QString &v);
    QString CancelButtonText() const { return m_cancelText; }
    void SetCancelButtonText(const QString &v);
    QString NextButtonText() const { return m_nextText; }
    void SetNextButtonText(const QString &v);
    // Kept for the host; the wizard shows no help button.
    QString HelpButtonText() const { return m_helpText; }
    void SetHelpButtonText(const QString &v);
    // Shown beside panes of the picture style.
    QPixmap Picture() const { return m_picture; }
    void SetPicture(const QPixmap &v);
    quint32 PictureBackColor() const { return m_pictureBackColor; }
    void SetPictureBackColor(quint32 v);
    ZEL_LATE_BOUND(PictureBackColor)
    // Twips; by default 2460 wide and a 920 high header band.
    qint16 PictureWidth() const { return m_pictureWidth; }
    void SetPictureWidth(qint16 v);
    ZEL_LATE_BOUND(PictureWidth)
    qint16 HeaderHeight() const { return m_headerHeight; }
    void SetHeaderHeight(qint16 v);
    ZEL_LATE_BOUND(HeaderHeight)
    QPixmap HeaderPicture() const { return m_headerPicture; }
    void SetHeaderPicture(const QPixmap &v);
    // The header title's font; by default the wizard's font in bold.
    QFont HeaderFont() const;
    void SetHeaderFont(const QFont &v);
    // By default white.
    quint32 HeaderBackColor() const { return m_headerBackColor; }
    void SetHeaderBackColor(quint32 v);
    ZEL_LATE_BOUND(HeaderBackColor)
    // false disables Back, Next, Finish and every pane that offers Enabled;
    // Cancel stays usable.
    bool Enabled() const { return m_enabled; }
    void SetEnabled(bool v);
    ZEL_LATE_BOUND(Enabled)
    // The name of the pane shown; "" before the first display and after Reset.
    QString CurrentPane() const { return m_currentName; }
    QString Comment() const { return m_comment; }
    void SetComment(const QString &v);

    // Shows the pane of that name without asking or entering it; false when
    // there is none.
    Q_INVOKABLE bool ViewPane(const QString &sPane);
    // The pane that IsFirstPane, else the first pane; nullptr without panes.
    Q_INVOKABLE QObject *FindFirstPane();
    // The first pane whose name matches, trimmed and in any letter case.
    Q_INVOKABLE QObject *FindPane(const QString &sPane);
    Q_INVOKABLE QObject *GetPaneInterface(QObject *oControl);
    // A progress bar in the bottom row; each call lets pending events run,
    // so a Cancel pressed during a long step arrives.
    Q_INVOKABLE void StartProgress(const QString &sCaption, double dMin, double dMax);
    Q_INVOKABLE void Progress(double dValue);
    Q_INVOKABLE void EndProgress();
    // Repaints and re-reads the current pane (at run time); starts at the
    // first pane when none is current.
    Q_INVOKABLE void Refresh();
    // Starts again at the first pane.
    Q_INVOKABLE void Reset();

    // The contained controls, in their order.
    QList<QWidget *> ContainedControls() const;
    const zelWizardButtonsLayout &ButtonsLayout() const { return m_buttons; }

    Q_INVOKABLE void InitProperties() override { zelPropertyHost::InitProperties(); }
    void ReadProperties(zelPropertyBag &bag) override;
    void WriteProperties(zelPropertyBag &bag) const override;
    const zel::zelPropertyTable &Properties() const override;

signals:
    void Paint();
    void Resize();
    void PaneChanged(const QString &sOldPane, const QString &sNewPane);
    void Cancel();
    void Finish();
    // Set bCancel to stay on the pane; the pane has already agreed.
    void LeavingPane(const QString &sOldPane, ZEL_Controls_WizardDirections eDirection,
                     bool &bCancel);
    void PropertyChanged(const QString &name);

protected:
    const QObject *PropertyOwner() const override { return this; }
    void MarkChanged(const QString &name) override { emit PropertyChanged(name); }
    void Refresh(quint32 what) override;
    bool event(QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    enum : quint32
    {
        RefreshColours = 0x1,
        RefreshLayout = 0x2,
        RefreshCaptions = 0x4,
        RefreshPictures = 0x8,
    };
    void cmdBack_Click();
    void cmdNext_Click();
    void cmdFinish_Click();
    void cmdCancel_Click();
    void move(ZEL_Controls_WizardDirections eDirection);
    bool showPane(QWidget *control, const QString &previous);
    void changePane(QWidget *control, const QString &oldName,
                    ZEL_Controls_WizardDirections eDirection);
    void hidePanes(const QWidget *shown);
    void refreshWizard();
    void sizePane();
    void placeButtons();
    void layoutWizard(bool force);
    void applyColours();
    void applyCaptions();
    void applyPictures();
    void letColour(const char *name, quint32 &member, quint32 v);
    void pumpEvents();
    bool buttonReady(const QPushButton *b) const;

    QLabel *m_imgWizard = nullptr;
    QWidget *m_picHeader = nullptr;
    QLabel *m_lblUserInformation = nullptr;
    QLabel *m_lblDescription = nullptr;
    QLabel *m_picHeaderPicture = nullptr;
    QWidget *m_fraBottomBack = nullptr;
    QPushButton *m_cmdBack = nullptr;
    QPushButton *m_cmdNext = nullptr;
    QPushButton *m_cmdFinish = nullptr;
    QPushButton *m_cmdCancel = nullptr;
    QLabel *m_lblComment = nullptr;
    QLabel *m_lblProgress = nullptr;
    QProgressBar *m_prbProgress = nullptr;

    QString m_language;
    QString m_helpFile;
    qint32 m_helpContextID = 0;
    quint32 m_backColor = 0x8000000F;
    QString m_backText = QStringLiteral("&Back");
    QString m_finishText = QStringLiteral("&Finish");
    QString m_cancelText = QStringLiteral("&Cancel");
    QString m_nextText = QStringLiteral("&Next");
    QString m_helpText = QStringLiteral("&Help");
    QPixmap m_picture;
    quint32 m_pictureBackColor = 0x8000000F;
    qint16 m_pictureWidth = zelWizardPictureWidth;
    qint16 m_headerHeight = zelWizardHeaderHeight;
    QPixmap m_headerPicture;
    QFont m_headerFont;
    bool m_ownHeaderFont = false;
    quint32 m_headerBackColor = 0x00FFFFFF;
    bool m_enabled = true;
    QString m_comment;

    QString m_currentName;
    QPointer<QObject> m_current;        // the pane interface shown
    QPointer<QWidget> m_currentControl; // the control that answered it
    bool m_started = false;
    bool m_inProgress = false;
    double m_progressMin = 0.0;
    double m_progressMax = 0.0;
    QSize m_lastSize;
    zelWizardButtonsLayout m_buttons;
};
