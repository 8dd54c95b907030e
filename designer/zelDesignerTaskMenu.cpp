#include "zelDesignerTaskMenu.h"

#include "core/zelTrail.h"
#include "platform/zelObjectFactory.h"
#include "wizard/zelPropertyPages.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QVBoxLayout>
#include <QtDesigner/QDesignerFormWindowCursorInterface>
#include <QtDesigner/QDesignerFormWindowInterface>

QString zelPageTaskMenuFactory::PageOf(const QObject *control)
{
    const QByteArray cls(control ? control->metaObject()->className() : "");
    if (cls == "zelPane")
        return QStringLiteral("Pane");
    if (cls == "zelWizard")
        return QStringLiteral("Wizard");
    return {};
}

QObject *zelPageTaskMenuFactory::createExtension(QObject *object, const QString &iid,
                                                 QObject *parent) const
{
    auto *control = qobject_cast<QWidget *>(object);
    if (iid != Q_TYPEID(QDesignerTaskMenuExtension) || PageOf(control).isEmpty())
        return nullptr;
    return new zelPageTaskMenu(control, parent);
}

zelPageTaskMenu::zelPageTaskMenu(QWidget *control, QObject *parent)
    : QObject(parent), m_control(control),
      m_edit(new QAction(QStringLiteral("Edit %1...").arg(zelPageTaskMenuFactory::PageOf(control)),
                         this))
{
    connect(m_edit, &QAction::triggered, this, [this] { edit(); });
}

void zelPageTaskMenu::edit()
{
    zel::Trail t(this, "edit");
    t.Run([&] {
        QDesignerFormWindowInterface *form =
            QDesignerFormWindowInterface::findFormWindow(m_control.data());
        if (!form)
            return;
        const QString page = zelPageTaskMenuFactory::PageOf(m_control);
        QList<QObject *> selected{m_control.data()};
        QDesignerFormWindowCursorInterface *cursor = form->cursor();
        for (int i = 0; i < cursor->selectedWidgetCount(); ++i) {
            QWidget *w = cursor->selectedWidget(i);
            if (w != m_control && zelPageTaskMenuFactory::PageOf(w) == page)
                selected.append(w);
        }
        QDialog dialog(form);
        dialog.setWindowTitle(page);
        auto *pageWidget = qobject_cast<zelPropertyPage *>(
            zel::CreateObject(QStringLiteral("zelCtrl.") + page, &dialog));
        if (!pageWidget)
            return;
        pageWidget->SetWriter([cursor](QObject *o, const QString &name, const QVariant &v) {
            cursor->setWidgetProperty(qobject_cast<QWidget *>(o), name, v);
        });
        pageWidget->SetSelectedControls(selected);
        pageWidget->SelectionChanged();
        auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
        connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
        connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
        auto *layout = new QVBoxLayout(&dialog);
        layout->addWidget(pageWidget);
        layout->addWidget(buttons);
        if (dialog.exec() == QDialog::Accepted)
            pageWidget->ApplyChanges();
    });
}
