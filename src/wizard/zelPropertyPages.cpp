#include "wizard/zelPropertyPages.h"

#include "core/zelTrail.h"
#include "platform/zelLateBinding.h"
#include "platform/zelObjectFactory.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QIntValidator>
#include <QLineEdit>
#include <QScopeGuard>

// Registered under the pages' own names, as designers know them.
static const int zelPagesRegistered = [] {
    zel::RegisterProgId(QStringLiteral("zelCtrl.Pane"), [](QObject *parent) -> QObject * {
        return new zelPanePage(qobject_cast<QWidget *>(parent));
    });
    zel::RegisterProgId(QStringLiteral("zelCtrl.Wizard"), [](QObject *parent) -> QObject * {
        return new zelWizardPage(qobject_cast<QWidget *>(parent));
    });
    return 0;
}();

zelPropertyPage::zelPropertyPage(const char *pageName, QWidget *parent)
    : QWidget(parent), m_pageName(QString::fromLatin1(pageName)),
      m_writer(
          [](QObject *o, const QString &name, const QVariant &v) { zel::SetProperty(o, name, v); })
{
    new QFormLayout(this);
}

zelPropertyPage::~zelPropertyPage() = default;

void zelPropertyPage::SetSelectedControls(const QList<QObject *> &controls)
{
    m_selected.clear();
    for (QObject *o : controls)
        m_selected.append(o);
}

QList<QObject *> zelPropertyPage::SelectedControls() const
{
    QList<QObject *> list;
    for (const QPointer<QObject> &o : m_selected)
        list.append(o.data());
    return list;
}

void zelPropertyPage::addField(const char *property, QWidget *editor)
{
    const QString label =
        property ? QString::fromLatin1(property) : editor->objectName().mid(3); // "cbo..."
    static_cast<QFormLayout *>(layout())->addRow(label, editor);
    m_fields.push_back({property, editor});
}

void zelPropertyPage::AddText(const char *property, bool numeric)
{
    auto *edit = new QLineEdit(this);
    edit->setObjectName(QStringLiteral("txt") + QLatin1String(property));
    if (numeric)
        edit->setValidator(new QIntValidator(0, 32767, edit));
    connect(edit, &QLineEdit::textEdited, this, [this] { m_changed = true; });
    addField(property, edit);
}

void zelPropertyPage::AddCheck(const char *property)
{
    auto *check = new QCheckBox(this);
    check->setObjectName(QStringLiteral("chk") + QLatin1String(property));
    connect(check, &QCheckBox::toggled, this, [this] { m_changed = m_changed || !m_reading; });
    addField(property, check);
}

QComboBox *zelPropertyPage::AddList(const char *property, const char *objectName,
                                    const QStringList &entries)
{
    auto *list = new QComboBox(this);
    list->setObjectName(QString::fromLatin1(objectName));
    list->addItems(entries);
    connect(list, &QComboBox::activated, this, [this] { m_changed = true; });
    addField(property, list);
    return list;
}

void zelPropertyPage::SelectionChanged()
{
    zel::Trail t(m_pageName + QStringLiteral(".PropertyPage_SelectionChanged"));
    t.Run([&] {
        QObject *first = m_selected.value(0);
        if (!first)
            return;
        m_reading = true;
        auto done = qScopeGuard([this] { m_reading = false; });
        for (const Field &f : m_fields) {
            if (!f.Property)
                continue;
            t.Step = QStringLiteral("Reading ") + QLatin1String(f.Property);
            const QVariant v = zel::GetProperty(first, QString::fromLatin1(f.Property));
            if (auto *edit = qobject_cast<QLineEdit *>(f.Editor))
                edit->setText(v.toString());
            else if (auto *check = qobject_cast<QCheckBox *>(f.Editor))
                check->setChecked(v.toBool());
            else if (auto *list = qobject_cast<QComboBox *>(f.Editor))
                list->setCurrentIndex(v.toInt());
        }
        m_changed = false;
    });
}

void zelPropertyPage::ApplyChanges()
{
    zel::Trail t(m_pageName + QStringLiteral(".PropertyPage_ApplyChanges"));
    t.Run([&] {
        QObject *first = m_selected.value(0);
        if (!first)
            return;
        for (const Field &f : m_fields) {
            if (!f.Property)
                continue;
            t.Step = QStringLiteral("Writing ") + QLatin1String(f.Property);
            QVariant v;
            if (auto *edit = qobject_cast<QLineEdit *>(f.Editor))
                v = edit->text();
            else if (auto *check = qobject_cast<QCheckBox *>(f.Editor))
                v = check->isChecked();
            else if (auto *list = qobject_cast<QComboBox *>(f.Editor))
                v = list->currentIndex();
            m_writer(first, QString::fromLatin1(f.Property), v);
        }
        m_changed = false;
    });
}

zelPanePage::zelPanePage(QWidget *parent) : zelPropertyPage("Pane", parent)
{
    AddText("Pane");
    AddText("PreviousPane");
    AddText("NextPane");
    AddList("PaneStyle", "cboPaneStyle",
            {QStringLiteral("0 - ZEL_PaneStyle_Picture"),
             QStringLiteral("1 - ZEL_PaneStyle_Header"), QStringLiteral("2 - ZEL_PaneStyle_None")});
    AddText("HeaderTitle");
    AddText("HeaderDescription");
    for (const char *p : {"CanCancel", "CanFinish", "CanBack", "CanNext", "CouldCancel",
                          "CouldFinish", "CouldBack", "CouldNext", "IsLastPane", "IsFirstPane"})
        AddCheck(p);
}

zelPanePage::~zelPanePage() = default;

zelWizardPage::zelWizardPage(QWidget *parent) : zelPropertyPage("Wizard", parent)
{
    AddText("BackButtonText");
    AddText("FinishButtonText");
    AddText("CancelButtonText");
    AddText("NextButtonText");
    AddText("HeaderHeight", true);
    AddText("PictureWidth", true);
    AddList(nullptr, "cboFinishMode",
            {QStringLiteral("0 - ZEL_FinishMode_Finish"),
             QStringLiteral("1 - ZEL_FinishMode_BackNextCancel"),
             QStringLiteral("2 - ZEL_FinishMode_BackCancel")});
}

zelWizardPage::~zelWizardPage() = default;
