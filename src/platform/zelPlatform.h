#pragma once

// The one door to the outside. Message boxes, beeps, focus moves, settings
// stores, dialogs and the screen's resolution are reached only through the
// platform object below, so that tests can put a recording fake in its place
// and a port to another host changes this folder alone.

#include "zelCtrlExport.h"
#include <QColor>
#include <QRect>
#include <QString>
#include <QVariant>

#include <memory>

class QDialog;
class QWidget;
class QPalette;

namespace zel {

// Which of the two settings stores a lookup goes to.
enum class SettingsScope
{
    User,    // per-user store: application "Quorvane", section "Common"
    Machine, // machine-wide store: key "Software\Quorvane\Common"
};

class ZELCTRL_EXPORT Platform
{
public:
    virtual ~Platform();

    // Modal message box with the exclamation icon and a single OK button.
    virtual void MessageBox(const QString &text, const QString &title, QWidget *parent = nullptr);
    virtual void Beep();
    // The send-keys "{TAB}": the focus moves to the next control in tab order.
    virtual void SendTab(QWidget *from);

    // Reads one value of the "Common" section of a settings store; answers
    // def when the value is not there.
    virtual QVariant ReadSetting(SettingsScope scope, const QString &key, const QVariant &def);

    // The colour dialog preset to colour (0x00BBGGRR); false when the user
    // cancelled, and colour is then left alone.
    virtual bool ChooseColor(quint32 &colour, QWidget *parent = nullptr);
    // An open-file dialog; an empty answer means cancelled.
    virtual QString ChooseOpenFile(const QString &title, const QString &filter,
                                   QWidget *parent = nullptr);
    // A folder dialog opened at start; an empty answer means cancelled.
    virtual QString ChooseFolder(const QString &title, const QString &start,
                                 QWidget *parent = nullptr);
    // Runs one of the library's own forms modally and answers its result
    // (QDialog::Accepted or Rejected).
    virtual int RunDialog(QDialog &dialog);

    // Twips per pixel of the screen (1440 / logical DPI: 15 at 96 DPI).
    virtual double TwipsPerPixel();
    // The palette that the system colours 0x8000000x are read from.
    virtual QPalette SystemPalette();

    // The library component's own name, as the log and its message boxes show it.
    virtual QString ApplicationName();
};

// The platform in force; a default Qt platform until a test installs its own.
ZELCTRL_EXPORT Platform &platform();
// Installs p (nullptr restores the default) and answers the previous one.
ZELCTRL_EXPORT std::unique_ptr<Platform> SetPlatform(std::unique_ptr<Platform> p);

// Where the settings files lie. ZEL_USER_SETTINGS and ZEL_MACHINE_SETTINGS
// name other files (tests and sandboxed hosts use them).
ZELCTRL_EXPORT QString SettingsFile(SettingsScope scope);

// Colours: 0x00BBGGRR values, and 0x8000000x naming system colours.
inline constexpr quint32 SysWindowBackground = 0x80000005;
inline constexpr quint32 SysWindowText = 0x80000008;
inline constexpr quint32 SysAppWorkspace = 0x8000000C;
inline constexpr quint32 SysButtonFace = 0x8000000F;
inline constexpr quint32 SysGrayText = 0x80000010;
inline constexpr quint32 SysButtonText = 0x80000012;

// The colour a value stands for on screen; a system colour is read from the
// platform's palette, an unknown system index gives the window background.
ZELCTRL_EXPORT QColor ToQColor(quint32 colour);
// The 0x00BBGGRR value of a plain colour.
ZELCTRL_EXPORT quint32 FromQColor(const QColor &colour);

// The ambient UserMode of a control: true at run time (the default), false
// while it sits in a form designer. A designer marks a control or any of its
// ancestors with SetUserMode(w, false).
ZELCTRL_EXPORT bool UserMode(const QObject *control);
ZELCTRL_EXPORT void SetUserMode(QObject *control, bool userMode);

// Conversions between twips and pixels at the widget edge.
ZELCTRL_EXPORT int TwipsToPixels(double twips);
ZELCTRL_EXPORT int PixelsToTwips(int pixels);
ZELCTRL_EXPORT QRect TwipsToPixels(const QRect &twips);

} // namespace zel
