#include "zelGallery.h"

#include "platform/zelPropertyBag.h"

#include <QJsonObject>

// Controls are saved under their object names, one JSON object each.
void zelSaveForm(QWidget *page, const QString &fileName)
{
    QJsonObject form;
    for (QWidget *w : page->findChildren<QWidget *>()) {
        auto *p = dynamic_cast<zelPersistable *>(w);
        if (!p || w->objectName().isEmpty())
            continue;
        zelJsonPropertyBag bag;
        p->WriteProperties(bag);
        form.insert(w->objectName(), bag.Object());
    }
    zelJsonPropertyBag(form).Save(fileName);
}

void zelLoadForm(QWidget *page, const QString &fileName)
{
    zelJsonPropertyBag file;
    if (!file.Load(fileName))
        return;
    const QJsonObject form = file.Object();
    for (QWidget *w : page->findChildren<QWidget *>()) {
        auto *p = dynamic_cast<zelPersistable *>(w);
        if (!p || !form.contains(w->objectName()))
            continue;
        zelJsonPropertyBag bag(form.value(w->objectName()).toObject());
        p->ReadProperties(bag);
    }
}
