#include "platform/zelContainerSwitch.h"

#include <QWidget>

namespace zel {

void EnableContainer(QWidget *container, bool bEnabled)
{
    if (!container)
        return;
    // Each widget explicitly: a widget that Qt only disables through its
    // parent would come back on with it, whatever the host wanted.
    const QList<QWidget *> widgets = container->findChildren<QWidget *>();
    for (QWidget *w : widgets)
        w->setEnabled(bEnabled);
}

} // namespace zel
