// The wizard's moves between panes, its buttons and keys, and its progress.

#include "wizard/zelWizard.h"

#include "core/zelTrail.h"
#include "platform/zelLateBinding.h"
#include "platform/zelPlatform.h"
#include "wizard/zelPaneContract.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include <cmath>

namespace {

QString text(QObject *o, const char *name)
{
    return zel::GetProperty(o, QString::fromLatin1(name)).toString();
}

bool flag(QObject *o, const char *name)
{
    return zel::GetProperty(o, QString::fromLatin1(name)).toBool();
}

} // namespace

QList<QWidget *> zelWizard::ContainedControls() const
{
    QList<QWidget *> list;
    const QObjectList &kids = children();
    for (QObject *o : kids) {
        auto *w = qobject_cast<QWidget *>(o);
        if (!w || w->isWindow() || w == m_imgWizard || w == m_picHeader || w == m_fraBottomBack)
            continue;
        list.append(w);
    }
    return list;
}

QObject *zelWizard::GetPaneInterface(QObject *oControl)
{
    zel::Trail t(this, "GetPaneInterface");
    QObject *pane = nullptr;
    t.Run([&] { pane = zel::PaneInterfaceOf(oControl); });
    return pane;
}

QObject *zelWizard::FindPane(const QString &sPane)
{
    zel::Trail t(this, "FindPane");
    QObject *found = nullptr;
    t.Run([&] {
        const QString key = zel::PaneKey(sPane);
        for (QWidget *c : ContainedControls()) {
            QObject *pane = zel::PaneInterfaceOf(c);
            if (pane && zel::PaneKey(text(pane, "Pane")) == key) {
                found = c;
                return;
            }
        }
    });
    return found;
}

QObject *zelWizard::FindFirstPane()
{
    zel::Trail t(this, "FindFirstPane");
    QObject *first = nullptr;
    t.Run([&] {
        for (QWidget *c : ContainedControls()) {
            QObject *pane = zel::PaneInterfaceOf(c);
            if (!pane)
                continue;
            if (!first)
                first = c;
            if (flag(pane, "IsFirstPane")) {
                first = c;
                return;
            }
        }
    });
    return first;
}

void zelWizard::hidePanes(const QWidget *shown)
{
    // Only the pane shown is visible, also where two panes share a name.
    for (QWidget *c : ContainedControls())
        if (zel::PaneInterfaceOf(c))
            c->setVisible(c == shown);
}

bool zelWizard::showPane(QWidget *control, const QString &previous)
{
    // The classic control named this procedure's trail so; hosts' logs match it.
    zel::Trail t(this, "UserControl_InitProperties");
    bool shown = false;
    t.Run([&] {
        if (!control)
            return;
        QObject *pane = zel::PaneInterfaceOf(control);
        m_current = pane;
        m_currentControl = pane ? control : nullptr;
        if (!pane)
            return;
        if (!previous.isEmpty())
            zel::SetProperty(pane, QStringLiteral("PreviousPane"), previous);
        hidePanes(control);
        m_currentName = text(pane, "Pane");
        sizePane();
        placeButtons();
        m_lblUserInformation->setText(text(pane, "HeaderTitle"));
        m_lblDescription->setText(text(pane, "HeaderDescription"));
        shown = true;
    });
    return shown;
}

void zelWizard::changePane(QWidget *control, const QString &oldName,
                           ZEL_Controls_WizardDirections eDirection)
{
    zel::Trail t(this, "ChangePane");
    t.Run([&] {
        if (!showPane(control, eDirection == ZEL_WizardDirection_Next ? oldName : QString()))
            return;
        if (eDirection != ZEL_WizardDirection_None)
            zel::EnterPaneOf(m_current, eDirection);
        sizePane();
        placeButtons();
        emit PaneChanged(oldName, m_currentName);
    });
}

void zelWizard::move(ZEL_Controls_WizardDirections eDirection)
{
    auto *control = qobject_cast<QWidget *>(FindPane(m_currentName));
    QObject *pane = zel::PaneInterfaceOf(control);
    if (!pane || !zel::LeavePaneOf(pane, eDirection))
        return;
    bool bCancel = false;
    emit LeavingPane(m_currentName, eDirection, bCancel);
    if (bCancel)
        return;
    if (eDirection == ZEL_WizardDirection_None) {
        emit Finish();
        return;
    }
    // Back reads the control itself: its PreviousPane is what Next wrote there.
    const bool next = eDirection == ZEL_WizardDirection_Next;
    QObject *from = next ? pane : control;
    const QString target = text(from, next ? "NextPane" : "PreviousPane");
    const QString name = text(from, "Pane");
    changePane(qobject_cast<QWidget *>(FindPane(target)), name, eDirection);
}

void zelWizard::cmdNext_Click()
{
    zel::Trail t(this, "cmdNext_Click");
    t.Run([&] { move(ZEL_WizardDirection_Next); });
}

void zelWizard::cmdBack_Click()
{
    zel::Trail t(this, "cmdBack_Click");
    t.Run([&] { move(ZEL_WizardDirection_Back); });
}

void zelWizard::cmdFinish_Click()
{
    zel::Trail t(this, "cmdFinish_Click");
    t.Run([&] { move(ZEL_WizardDirection_None); });
}

void zelWizard::cmdCancel_Click()
{
    zel::Trail t(this, "cmdCancel_Click");
    t.Run([&] { emit Cancel(); });
}

bool zelWizard::buttonReady(const QPushButton *b) const
{
    return !b->isHidden() && b->isEnabledTo(const_cast<zelWizard *>(this));
}

void zelWizard::keyPressEvent(QKeyEvent *event)
{
    zel::Trail t(this, "UserControl_KeyPress");
    bool used = false;
    t.Run([&] {
        if (event->key() == Qt::Key_Escape) {
            used = true;
            emit Cancel();
        } else if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
            used = true;
            if (buttonReady(m_cmdFinish))
                cmdFinish_Click();
            else if (buttonReady(m_cmdNext))
                cmdNext_Click();
        }
    });
    if (!used)
        QWidget::keyPressEvent(event);
}

bool zelWizard::ViewPane(const QString &sPane)
{
    zel::Trail t(this, "ViewPane");
    bool found = false;
    t.Run([&] {
        auto *control = qobject_cast<QWidget *>(FindPane(sPane));
        if (!control)
            return;
        const QString old = m_currentName;
        if (!showPane(control, QString()))
            return;
        emit PaneChanged(old, m_currentName);
        found = true;
    });
    return found;
}

void zelWizard::refreshWizard()
{
    if (!zel::UserMode(this))
        return;
    auto *control = qobject_cast<QWidget *>(FindPane(m_currentName));
    if (!control || m_currentName.isEmpty())
        changePane(qobject_cast<QWidget *>(FindFirstPane()), QString(), ZEL_WizardDirection_Next);
    else
        showPane(control, QString());
}

void zelWizard::Refresh()
{
    zel::Trail t(this, "Refresh");
    t.Run([&] {
        update();
        refreshWizard();
    });
}

void zelWizard::Reset()
{
    zel::Trail t(this, "Reset");
    t.Run([&] {
        m_currentName.clear();
        Refresh();
    });
}

void zelWizard::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (m_started || !zel::UserMode(this))
        return;
    m_started = true;
    zel::Trail t(this, "UserControl_Show");
    t.Run([&] { refreshWizard(); });
}

void zelWizard::sizePane()
{
    if (!m_currentControl)
        return;
    const zelPaneLayout l = zelSizePane(
        zel::GetProperty(m_current, QStringLiteral("PaneStyle")).toInt(),
        zel::PixelsToTwips(width()), zel::PixelsToTwips(height()), m_pictureWidth, m_headerHeight);
    m_imgWizard->setVisible(l.ShowPicture);
    m_picHeader->setVisible(l.ShowHeader);
    m_currentControl->setGeometry(zel::TwipsToPixels(l.Pane));
}

void zelWizard::placeButtons()
{
    zel::Trail t(this, "PlaceButtons");
    t.Run([&] {
        if (QObject *pane = m_current.data()) {
            m_cmdBack->setVisible(flag(pane, "CouldBack"));
            m_cmdNext->setVisible(flag(pane, "CouldNext"));
            m_cmdFinish->setVisible(flag(pane, "CouldFinish"));
            m_cmdCancel->setVisible(flag(pane, "CouldCancel"));
            // A disabled wizard can still be cancelled.
            m_cmdBack->setEnabled(flag(pane, "CanBack") && m_enabled);
            m_cmdNext->setEnabled(flag(pane, "CanNext") && m_enabled);
            m_cmdFinish->setEnabled(flag(pane, "CanFinish") && m_enabled);
            m_cmdCancel->setEnabled(flag(pane, "CanCancel"));
        }
        m_buttons = zelPlaceWizardButtons(zel::PixelsToTwips(m_fraBottomBack->width()),
                                          {!m_cmdCancel->isHidden(), !m_cmdFinish->isHidden(),
                                           !m_cmdNext->isHidden(), !m_cmdBack->isHidden()});
        m_cmdCancel->setGeometry(zel::TwipsToPixels(m_buttons.Button(zelWizardButton::Cancel)));
        m_cmdFinish->setGeometry(zel::TwipsToPixels(m_buttons.Button(zelWizardButton::Finish)));
        m_cmdNext->setGeometry(zel::TwipsToPixels(m_buttons.Button(zelWizardButton::Next)));
        m_cmdBack->setGeometry(zel::TwipsToPixels(m_buttons.Button(zelWizardButton::Back)));
        m_lblComment->setGeometry(zel::TwipsToPixels(m_buttons.Comment));
        m_lblProgress->setGeometry(zel::TwipsToPixels(m_buttons.ProgressLabel));
        m_prbProgress->setGeometry(zel::TwipsToPixels(m_buttons.ProgressBar));
    });
}

void zelWizard::pumpEvents()
{
    // The host's pending input (a Cancel press) arrives between steps.
    QCoreApplication::processEvents();
}

void zelWizard::StartProgress(const QString &sCaption, double dMin, double dMax)
{
    zel::Trail t(this, "StartProgress");
    t.Run([&] {
        // The bar refuses a range that does not run upwards, as its own Min and Max do.
        if (!(dMin < dMax))
            throw zelError(zelError::InvalidPropertyValue, t.Name(),
                           QStringLiteral("The minimum must lie below the maximum"));
        if (!std::isfinite(dMax - dMin))
            throw zelError(zelError::Overflow);
        m_progressMin = dMin;
        m_progressMax = dMax;
        m_inProgress = true;
        m_lblProgress->setText(sCaption);
        m_prbProgress->setValue(0);
        m_lblComment->hide();
        m_lblProgress->show();
        m_prbProgress->show();
    });
    pumpEvents();
}

void zelWizard::Progress(double dValue)
{
    zel::Trail t(this, "Progress");
    t.Run([&] {
        if (!m_inProgress)
            return;
        if (!(dValue >= m_progressMin && dValue <= m_progressMax))
            throw zelError(zelError::InvalidPropertyValue, t.Name(),
                           QStringLiteral("The value lies outside the progress range"));
        const double share = (dValue - m_progressMin) / (m_progressMax - m_progressMin);
        m_prbProgress->setValue(int(std::lround(share * m_prbProgress->maximum())));
    });
    pumpEvents();
}

void zelWizard::EndProgress()
{
    zel::Trail t(this, "EndProgress");
    t.Run([&] {
        m_inProgress = false;
        m_prbProgress->hide();
        m_lblProgress->hide();
        m_lblComment->show();
    });
    pumpEvents();
}
