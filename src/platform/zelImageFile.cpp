#include "platform/zelImageFile.h"

#include <QFileInfo>
#include <QImageReader>

namespace zel {

QImage ReadImageFile(const QString &fileName, QString *why)
{
    const QFileInfo info(fileName);
    QString reason;
    QImage image;
    if (fileName.isEmpty() || !info.exists()) {
        reason = QStringLiteral("File not found: \"%1\"").arg(fileName);
    } else if (!info.isFile()) {
        reason = QStringLiteral("Not a file: \"%1\"").arg(fileName);
    } else {
        QImageReader reader(fileName);
        image = reader.read();
        if (image.isNull())
            reason = QStringLiteral("No picture in \"%1\": %2").arg(fileName, reader.errorString());
    }
    if (why)
        *why = reason;
    return image;
}

} // namespace zel
