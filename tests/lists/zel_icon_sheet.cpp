// Every built-in list picture at 16 pixels (as is and enlarged three times,
// so single pixels show) and at 32 pixels, in one PNG.
#include "lists/zelImageList.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

int main(int argc, char **argv)
{
    QGuiApplication app(argc, argv);
    zel::zelImageList images;
    const int columns = 7, width = 120, height = 56;
    const int rows = (images.Count() + columns - 1) / columns;
    QImage sheet(columns * width, rows * height, QImage::Format_ARGB32);
    sheet.fill(Qt::white);
    QPainter p(&sheet);
    for (int i = 1; i <= images.Count(); ++i) {
        const int x = (i - 1) % columns * width, y = (i - 1) / columns * height;
        const QPixmap small = images.Icon(i).pixmap(16);
        p.drawPixmap(x + 4, y + 20, small);
        p.drawPixmap(QRect(x + 24, y + 4, 48, 48), small);
        p.drawPixmap(x + 80, y + 12, images.Icon(i).pixmap(32));
    }
    p.end();
    return sheet.save(argc > 1 ? QString::fromLocal8Bit(argv[1]) : QStringLiteral("zel-icons.png"))
               ? 0
               : 1;
}
