#pragma once

// A recording platform for the tests: message boxes are answered and kept,
// beeps counted, focus moves recorded, settings held in memory, the colour
// and file dialogs answered from fields, and the logger component replaced by
// one that keeps every message. zelTestScope installs it for one test.

#include "core/mLog.h"
#include "platform/zelObjectFactory.h"
#include "platform/zelPlatform.h"

#include <QHash>
#include <QList>
#include <QObject>
#include <QPalette>
#include <QPointer>
#include <QStringList>
#include <QVariantList>
#include <QWidget>

#include <functional>
#include <memory>

class zelFakePlatform : public zel::Platform
{
public:
    struct Message
    {
        QString text;
        QString title;
    };

    QList<Message> messages;
    int beeps = 0;
    QList<QPointer<QWidget>> tabsFrom;
    bool moveFocusOnTab = true;
    QHash<QString, QVariant> userSettings;
    QHash<QString, QVariant> machineSettings;

    // The colour dialog: false = the user cancels.
    bool colorDialogAccepts = true;
    quint32 colorDialogAnswer = 0;
    QList<quint32> colorDialogPresets;

    double twipsPerPixel = 15.0;

    // The folder dialog: answers taken in turn (none left: cancelled), and
    // the titles it was opened with.
    QStringList folderAnswers;
    QStringList folderTitles;
    // The library's modal forms: never run under a test; the form is handed
    // here instead, and what this answers is the form's result.
    std::function<int(QDialog &)> dialogAnswer;

    void MessageBox(const QString &text, const QString &title, QWidget *) override
    {
        messages.append({text, title});
    }
    void Beep() override { ++beeps; }
    void SendTab(QWidget *from) override
    {
        tabsFrom.append(from);
        if (moveFocusOnTab)
            zel::Platform::SendTab(from);
    }
    QVariant ReadSetting(zel::SettingsScope scope, const QString &key, const QVariant &def) override
    {
        const auto &store = scope == zel::SettingsScope::User ? userSettings : machineSettings;
        return store.value(key, def);
    }
    bool ChooseColor(quint32 &colour, QWidget *) override
    {
        colorDialogPresets.append(colour);
        if (!colorDialogAccepts)
            return false;
        colour = colorDialogAnswer;
        return true;
    }
    // No file dialog ever opens under a test.
    QString ChooseOpenFile(const QString &, const QString &, QWidget *) override { return {}; }
    QString ChooseFolder(const QString &title, const QString &, QWidget *) override
    {
        folderTitles.append(title);
        return folderAnswers.isEmpty() ? QString() : folderAnswers.takeFirst();
    }
    int RunDialog(QDialog &dialog) override { return dialogAnswer ? dialogAnswer(dialog) : 0; }
    double TwipsPerPixel() override { return twipsPerPixel; }
};

// The logger component of the tests: keeps every call.
class zelCaptureLogger : public QObject
{
    Q_OBJECT
public:
    using QObject::QObject;
    static QList<QVariantList> errors;
    static QList<QVariantList> traces;
    static int created;
    static bool failing; // throw from every call, as a broken logger would

    Q_INVOKABLE void ErrorMessage(const QString &app, const QString &version, const QString &source,
                                  qint32 number, const QString &errSource,
                                  const QString &description, const QString &moreInfo);
    Q_INVOKABLE void TraceMessage(const QString &app, const QString &version, const QString &source,
                                  const QString &text1, const QString &text2);
};

// Installs the fake platform and the capturing logger, and gives the log a
// fresh process state; all is undone when the scope ends.
class zelTestScope
{
public:
    zelTestScope();
    ~zelTestScope();
    zelFakePlatform &fake() { return *m_fake; }

    static constexpr const char *LoggerProgId = "zelTest.CaptureLogger";

private:
    zelFakePlatform *m_fake;
    std::unique_ptr<zel::Platform> m_previous;
};

// Error messages that reached the logger with this trail source.
int zelLoggedErrors(const QString &source = QString());

// Shows a form and makes it the active window, as a user's form is.
bool zelShowActive(QWidget &form);

// Types text key by key; a character beyond ASCII (a surrogate pair as one)
// goes as a key press without a key code, as an input method sends it.
void zelTypeKeys(QWidget *w, const QString &text);
