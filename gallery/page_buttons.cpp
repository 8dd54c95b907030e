#include "zelGallery.h"

#include "buttons/zelPrpButtons.h"
#include "buttons/zelStdButtons.h"

#include <QApplication>
#include <QFont>
#include <QGridLayout>
#include <QLabel>
#include <QStyle>

namespace {

class Rows
{
public:
    Rows(QGridLayout *grid, zelEventLog *log) : m_grid(grid), m_log(log) {}

    void Heading(const QString &text)
    {
        auto *label = new QLabel(text);
        QFont f = label->font();
        f.setBold(true);
        label->setFont(f);
        m_grid->addWidget(label, m_row++, 0, 1, 2);
    }

    // A bar on its own row, at the right as a dialog has it.
    template <typename Bar> Bar *Add(const QString &name, const QString &description)
    {
        auto *bar = new Bar;
        bar->setObjectName(name);
        m_grid->addWidget(new QLabel(description), m_row, 0);
        m_grid->addWidget(bar, m_row++, 1, Qt::AlignRight | Qt::AlignVCenter);
        m_log->Watch(bar, name);
        return bar;
    }

private:
    QGridLayout *m_grid;
    zelEventLog *m_log;
    int m_row = 0;
};

QWidget *makePage(zelEventLog *log)
{
    auto *page = new QWidget;
    auto *grid = new QGridLayout(page);
    grid->setColumnStretch(1, 1);
    grid->setVerticalSpacing(10);
    Rows rows(grid, log);
    const QIcon info = QApplication::style()->standardIcon(QStyle::SP_MessageBoxInformation);

    rows.Heading(QStringLiteral("Standard button bar"));
    rows.Add<zelStdButtons>(QStringLiteral("sbnEnglish"), QStringLiteral("English, the defaults"));

    auto *german = rows.Add<zelStdButtons>(QStringLiteral("sbnGerman"),
                                           QStringLiteral("German, two option buttons"));
    german->SetLanguage(QStringLiteral("german"));
    german->SetOptionButtonCaption(0, QStringLiteral("&Extras"));
    german->SetOptionButtonCaption(1, QStringLiteral("&Standard"));
    german->SetButtonsVisible(ZEL_StdButton_All | ZEL_StdButton_Option0 | ZEL_StdButton_Option1);
    german->SetButtonsEnabled(ZEL_StdButton_All | ZEL_StdButton_Option0 | ZEL_StdButton_Option1);

    auto *options = rows.Add<zelStdButtons>(QStringLiteral("sbnOptions"),
                                            QStringLiteral("OK, Cancel and option buttons 0 to 3"));
    options->SetOptionButtonCaption(0, QStringLiteral("&Defaults"));
    options->SetOptionButtonCaption(1, QStringLiteral("&Info"));
    options->SetOptionButtonCaption(2, QStringLiteral("E&xport"));
    options->SetOptionButtonCaption(3, QStringLiteral("I&mport"));
    options->LoadOptionButtonPicture(1, info);
    options->SetButtonsVisible(ZEL_StdButton_OKCancel | ZEL_StdButton_Option0 |
                               ZEL_StdButton_Option1 | ZEL_StdButton_Option2 |
                               ZEL_StdButton_Option3);
    options->SetButtonsEnabled(255);
    options->ChangeEnabledButtons(ZEL_StdButton_Option3, false);

    auto *close = rows.Add<zelStdButtons>(QStringLiteral("sbnClose"),
                                          QStringLiteral("OKasClose: OK reads Close"));
    close->SetButtonsVisible(ZEL_StdButton_OKHelp);
    close->SetOKasClose(true);

    auto *schliessen = rows.Add<zelStdButtons>(QStringLiteral("sbnSchliessen"),
                                               QStringLiteral("OKasClose in German"));
    schliessen->SetLanguage(QStringLiteral("Deutsch"));
    schliessen->SetButtonsVisible(ZEL_StdButton_OKHelp);
    schliessen->SetOKasClose(true);

    auto *preview = rows.Add<zelStdButtons>(
        QStringLiteral("sbnPreview"), QStringLiteral("ApplyAsPreview, Apply disabled at first"));
    preview->SetApplyAsPreview(true);
    preview->ChangeEnabledButtons(ZEL_StdButton_Apply, false);

    auto *vorschau = rows.Add<zelStdButtons>(QStringLiteral("sbnVorschau"),
                                             QStringLiteral("ApplyAsPreview in German"));
    vorschau->SetLanguage(QStringLiteral("german"));
    vorschau->SetApplyAsPreview(true);
    vorschau->SetOKasClose(true);

    rows.Heading(QStringLiteral("Property button bar"));
    rows.Add<zelPrpButtons>(QStringLiteral("pbnEnglish"), QStringLiteral("English, the defaults"));

    auto *deutsch = rows.Add<zelPrpButtons>(QStringLiteral("pbnGerman"), QStringLiteral("German"));
    deutsch->SetLanguage(QStringLiteral("Deutsch"));

    auto *listBar = rows.Add<zelPrpButtons>(
        QStringLiteral("pbnList"), QStringLiteral("Add and Remove (disabled) with two options"));
    listBar->SetOptionButtonCaption(0, QStringLiteral("&Up"));
    listBar->SetOptionButtonCaption(1, QStringLiteral("&Down"));
    listBar->SetButtonsVisible(ZEL_PrpButton_AddRemove | ZEL_PrpButton_Option0 |
                               ZEL_PrpButton_Option1);
    listBar->SetButtonsEnabled(ZEL_PrpButton_Add | ZEL_PrpButton_Option0 | ZEL_PrpButton_Option1);

    grid->setRowStretch(grid->rowCount(), 1);
    return page;
}

const zelGalleryPageRegistrar registrar(20, QStringLiteral("Button bars"), makePage);

} // namespace
