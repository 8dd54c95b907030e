#include "platform/zelPlatform.h"

#include <QApplication>
#include <QColorDialog>
#include <QDialog>
#include <QDir>
#include <QFileDialog>
#include <QMessageBox>
#include <QPalette>
#include <QPointer>
#include <QScreen>
#include <QSettings>
#include <QStandardPaths>
#include <QWidget>

#include <cmath>

namespace zel {

namespace {

std::unique_ptr<Platform> &current()
{
    static std::unique_ptr<Platform> p = std::make_unique<Platform>();
    return p;
}

} // namespace

Platform::~Platform() = default;

void Platform::MessageBox(const QString &text, const QString &title, QWidget *parent)
{
    // On the heap: a host may delete the form, and with it the box, while
    // the box waits for the user.
    QPointer<QMessageBox> box =
        new QMessageBox(QMessageBox::Warning, title, text, QMessageBox::Ok, parent);
    box->exec();
    delete box.data();
}

void Platform::Beep()
{
    QApplication::beep();
}

void Platform::SendTab(QWidget *from)
{
    if (!from)
        return;
    // Qt has no send-keys; moving along the tab chain is what a Tab does.
    QWidget *w = from->nextInFocusChain();
    while (w && w != from) {
        if ((w->focusPolicy() & Qt::TabFocus) && w->isVisibleTo(from->window()) && w->isEnabled() &&
            !from->isAncestorOf(w) && w->window() == from->window()) {
            w->setFocus(Qt::TabFocusReason);
            return;
        }
        w = w->nextInFocusChain();
    }
}

QString SettingsFile(SettingsScope scope)
{
    const char *env = scope == SettingsScope::User ? "ZEL_USER_SETTINGS" : "ZEL_MACHINE_SETTINGS";
    const QString over = qEnvironmentVariable(env);
    if (!over.isEmpty())
        return over;
    if (scope == SettingsScope::User)
        return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
               QStringLiteral("/Quorvane/Quorvane.ini");
    return QStringLiteral("/etc/xdg/Quorvane/Quorvane.ini");
}

QVariant Platform::ReadSetting(SettingsScope scope, const QString &key, const QVariant &def)
{
    QSettings s(SettingsFile(scope), QSettings::IniFormat);
    s.beginGroup(QStringLiteral("Common"));
    return s.value(key, def);
}

bool Platform::ChooseColor(quint32 &colour, QWidget *parent)
{
    const QColor chosen = QColorDialog::getColor(ToQColor(colour), parent);
    if (!chosen.isValid())
        return false;
    colour = FromQColor(chosen);
    return true;
}

QString Platform::ChooseOpenFile(const QString &title, const QString &filter, QWidget *parent)
{
    return QFileDialog::getOpenFileName(parent, title, QString(), filter);
}

QString Platform::ChooseFolder(const QString &title, const QString &start, QWidget *parent)
{
    return QFileDialog::getExistingDirectory(parent, title, start);
}

int Platform::RunDialog(QDialog &dialog)
{
    return dialog.exec();
}

double Platform::TwipsPerPixel()
{
    const QScreen *screen = qApp ? QGuiApplication::primaryScreen() : nullptr;
    const double dpi = screen ? screen->logicalDotsPerInch() : 96.0;
    return dpi > 0 ? 1440.0 / dpi : 15.0;
}

QPalette Platform::SystemPalette()
{
    return qApp ? QApplication::palette() : QPalette();
}

QString Platform::ApplicationName()
{
    return QStringLiteral("zelCtrl");
}

Platform &platform()
{
    return *current();
}

std::unique_ptr<Platform> SetPlatform(std::unique_ptr<Platform> p)
{
    if (!p)
        p = std::make_unique<Platform>();
    current().swap(p);
    return p;
}

QColor ToQColor(quint32 colour)
{
    if (colour & 0x80000000u) {
        const QPalette pal = platform().SystemPalette();
        switch (colour) {
        case SysWindowText:
            return pal.color(QPalette::Active, QPalette::WindowText);
        case SysAppWorkspace:
            return pal.color(QPalette::Active, QPalette::Dark);
        case SysButtonFace:
            return pal.color(QPalette::Active, QPalette::Button);
        case SysGrayText:
            return pal.color(QPalette::Disabled, QPalette::Text);
        case SysButtonText:
            return pal.color(QPalette::Active, QPalette::ButtonText);
        case SysWindowBackground:
        default:
            return pal.color(QPalette::Active, QPalette::Base);
        }
    }
    return QColor(int(colour & 0xFF), int((colour >> 8) & 0xFF), int((colour >> 16) & 0xFF));
}

quint32 FromQColor(const QColor &colour)
{
    const QColor c = colour.toRgb();
    return quint32(c.red()) | (quint32(c.green()) << 8) | (quint32(c.blue()) << 16);
}

bool UserMode(const QObject *control)
{
    for (const QObject *o = control; o; o = o->parent()) {
        const QVariant v = o->property("zelUserMode");
        if (v.isValid())
            return v.toBool();
    }
    return true;
}

void SetUserMode(QObject *control, bool userMode)
{
    if (control)
        control->setProperty("zelUserMode", userMode);
}

int TwipsToPixels(double twips)
{
    return int(std::lround(twips / platform().TwipsPerPixel()));
}

QRect TwipsToPixels(const QRect &twips)
{
    return QRect(TwipsToPixels(twips.x()), TwipsToPixels(twips.y()), TwipsToPixels(twips.width()),
                 TwipsToPixels(twips.height()));
}

int PixelsToTwips(int pixels)
{
    return int(std::lround(pixels * platform().TwipsPerPixel()));
}

} // namespace zel
