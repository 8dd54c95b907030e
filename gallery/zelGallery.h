#pragma once

// The gallery's building blocks: a page per control family, registered from
// its own file, and the live event log that every page's controls report to.

#include <QPlainTextEdit>
#include <QString>
#include <QWidget>

#include <functional>
#include <vector>

// Shows every event that a watched control raises, with its arguments.
// It carries no Q_OBJECT of its own: its slots are made at run time, one per
// watched signal, behind the methods of QPlainTextEdit.
class zelEventLog : public QPlainTextEdit
{
public:
    explicit zelEventLog(QWidget *parent = nullptr);
    ~zelEventLog() override;

    // Connects every signal that the control's own classes declare (not
    // those of QWidget) and names the control as label in each line.
    void Watch(QObject *control, const QString &label);
    void Say(const QString &line);

    int qt_metacall(QMetaObject::Call call, int id, void **args) override;

private:
    struct Slot
    {
        QObject *sender;
        int signalIndex;
        QString label;
    };
    std::vector<Slot> m_slots;
};

struct zelGalleryPage
{
    int order;
    QString title;
    std::function<QWidget *(zelEventLog *log)> make;
};

std::vector<zelGalleryPage> &zelGalleryPages();

struct zelGalleryPageRegistrar
{
    zelGalleryPageRegistrar(int order, const QString &title,
                            std::function<QWidget *(zelEventLog *)> make)
    {
        zelGalleryPages().push_back({order, title, std::move(make)});
    }
};

// A form of the gallery that "Save form" and "Load form" reach: each control
// on a page that has ReadProperties/WriteProperties is saved under its name.
void zelSaveForm(QWidget *page, const QString &fileName);
void zelLoadForm(QWidget *page, const QString &fileName);
