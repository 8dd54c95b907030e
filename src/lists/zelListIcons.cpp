#include "lists/zelListIcons_p.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <QPolygonF>

#include <array>
#include <cmath>
#include <initializer_list>

namespace zel::ListIcons {
namespace {

// One palette for every picture, so that a tree of mixed rows looks of a piece.
const QColor Ink(0x33, 0x33, 0x33);
const QColor Green(0x2e, 0x8b, 0x3a);
const QColor Red(0xc8, 0x31, 0x2b);
const QColor Yellow(0xf2, 0xc4, 0x1e);
const QColor Blue(0x2f, 0x6f, 0xc0);
const QColor Sky(0xa8, 0xd4, 0xf0);
const QColor Brown(0x9a, 0x63, 0x2e);
const QColor Soil(0xc9, 0x9a, 0x5b);
const QColor Steel(0x9a, 0xa4, 0xae);
const QColor Light(0xe4, 0xe8, 0xec);
const QColor Orange(0xe8, 0x7d, 0x1e);

void Shape(QPainter &p, const QColor &fill, qreal width = 1.0)
{
    p.setPen(QPen(Ink, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    p.setBrush(fill);
}

void Box(QPainter &p, qreal x, qreal y, qreal w, qreal h, const QColor &fill)
{
    Shape(p, fill);
    p.drawRect(QRectF(x, y, w, h));
}

void Poly(QPainter &p, std::initializer_list<QPointF> points, const QColor &fill)
{
    Shape(p, fill);
    p.drawPolygon(QPolygonF(QList<QPointF>(points)));
}

void Line(QPainter &p, QPointF a, QPointF b, const QColor &colour = Ink, qreal width = 1.0)
{
    p.setPen(QPen(colour, width, Qt::SolidLine, Qt::RoundCap));
    p.drawLine(a, b);
}

void Wheel(QPainter &p, QPointF c, qreal r)
{
    Shape(p, Ink);
    p.drawEllipse(c, r, r);
    p.setPen(Qt::NoPen);
    p.setBrush(Steel);
    p.drawEllipse(c, r / 2.5, r / 2.5);
}

void Cog(QPainter &p, QPointF c, qreal r, int teeth)
{
    QPainterPath path;
    for (int i = 0; i < teeth * 2; ++i) {
        const qreal a = M_PI * i / teeth;
        const qreal rr = (i % 2) ? r * 0.72 : r;
        const qreal half = M_PI / teeth / 2.2;
        const QPointF p1 = c + QPointF(std::cos(a - half) * rr, std::sin(a - half) * rr);
        const QPointF p2 = c + QPointF(std::cos(a + half) * rr, std::sin(a + half) * rr);
        if (i == 0)
            path.moveTo(p1);
        else
            path.lineTo(p1);
        path.lineTo(p2);
    }
    path.closeSubpath();
    path.addEllipse(c, r * 0.3, r * 0.3);
    Shape(p, Steel);
    p.drawPath(path);
}

void Crate(QPainter &p, qreal x, qreal y, qreal s)
{
    Box(p, x, y, s, s, Soil);
    Line(p, QPointF(x, y + s / 2), QPointF(x + s, y + s / 2), Brown);
    Line(p, QPointF(x + s / 2, y), QPointF(x + s / 2, y + s), Brown);
}

void Layer(QPainter &p, qreal y, const QColor &fill)
{
    Poly(p, {{8, y}, {15, y + 3.5}, {8, y + 7}, {1, y + 3.5}}, fill);
}

void Figure(QPainter &p, qreal x, qreal y, qreal s, const QColor &fill)
{
    Shape(p, fill);
    p.drawEllipse(QPointF(x, y + 2.5 * s), 2.5 * s, 2.5 * s);
    QPainterPath body;
    body.moveTo(x - 5 * s, y + 11 * s);
    body.cubicTo(x - 5 * s, y + 5 * s, x + 5 * s, y + 5 * s, x + 5 * s, y + 11 * s);
    body.closeSubpath();
    p.drawPath(body);
}

void Sack(QPainter &p, qreal x, qreal y, qreal s, const QColor &band)
{
    QPainterPath bag;
    bag.moveTo(x + 2 * s, y);
    bag.lineTo(x + 6 * s, y);
    bag.lineTo(x + 5 * s, y + 2 * s);
    bag.cubicTo(x + 9 * s, y + 4 * s, x + 9 * s, y + 10 * s, x + 7 * s, y + 11 * s);
    bag.lineTo(x + 1 * s, y + 11 * s);
    bag.cubicTo(x - 1 * s, y + 10 * s, x - 1 * s, y + 4 * s, x + 3 * s, y + 2 * s);
    bag.closeSubpath();
    Shape(p, Light);
    p.drawPath(bag);
    p.setPen(Qt::NoPen);
    p.setBrush(band);
    p.drawRect(QRectF(x + 0.6 * s, y + 5.5 * s, 6.8 * s, 2.5 * s));
}

void Pennant(QPainter &p, qreal x, qreal y, qreal s, const QColor &fill)
{
    Line(p, QPointF(x, y), QPointF(x, y + 13 * s), Ink, 1.2);
    Poly(p, {{x + 0.5, y}, {x + 9 * s, y + 2.5 * s}, {x + 0.5, y + 6 * s}}, fill);
}

void TractorSide(QPainter &p, const QColor &body)
{
    Box(p, 2.5, 1.5, 6, 7, Sky);                         // cab with its glass
    Box(p, 6.5, 7, 8, 4, body);                          // hood
    Line(p, QPointF(12, 7), QPointF(12, 3.5), Ink, 1.2); // exhaust
    p.setPen(QPen(body, 1.6));
    p.drawLine(QPointF(2.5, 1.5), QPointF(8.5, 1.5)); // roof
    Wheel(p, QPointF(5, 11), 4.3);
    Wheel(p, QPointF(13, 13), 2.4);
}

void Combine(QPainter &p, const QColor &body)
{
    Box(p, 5, 3.5, 9.5, 7.5, body);
    Box(p, 1.5, 1.5, 4.5, 4.5, Sky);
    Line(p, QPointF(13, 4), QPointF(15.5, 1), Ink, 1.2); // unloading auger
    Box(p, 0.5, 9, 4, 2.5, Yellow);                      // header
    Wheel(p, QPointF(7.5, 12), 3.3);
    Wheel(p, QPointF(13.5, 13.5), 1.8);
}

void TractorDown(QPainter &p, const QColor &body)
{
    Box(p, 1, 8, 3.5, 7, Ink);
    Box(p, 11.5, 8, 3.5, 7, Ink);
    Box(p, 3, 1.5, 2, 4, Ink);
    Box(p, 11, 1.5, 2, 4, Ink);
    Box(p, 5.5, 0.5, 5, 8, body); // hood seen from above
    Box(p, 4.5, 8, 7, 7, body);   // cab roof
    Box(p, 6, 9.5, 4, 4, Sky);
}

void Polygon(QPainter &p, const QColor &fill)
{
    Poly(p, {{2, 4}, {9, 1.5}, {14.5, 6}, {12, 14.5}, {3.5, 12.5}}, fill);
}

void PaintTank(QPainter &p)
{
    // A liquid tank lying on two saddles, with its filler cap.
    Box(p, 3.5, 10, 2, 4.5, Ink);
    Box(p, 10.5, 10, 2, 4.5, Ink);
    Shape(p, Blue);
    p.drawRoundedRect(QRectF(0.5, 3.5, 15, 8), 4, 4);
    Line(p, QPointF(3, 6), QPointF(13, 6), Sky, 1.2);
    Box(p, 6.5, 1.5, 3, 2, Steel);
}

void PaintBin(QPainter &p)
{
    // A grain bin: ribbed cylinder under a cone.
    Shape(p, Light);
    QPainterPath body;
    body.moveTo(2.5, 6.5);
    body.lineTo(2.5, 14);
    body.quadTo(8, 16, 13.5, 14);
    body.lineTo(13.5, 6.5);
    body.closeSubpath();
    p.drawPath(body);
    for (qreal y : {9.0, 11.5})
        Line(p, QPointF(3, y), QPointF(13, y), Steel);
    Poly(p, {{1, 7}, {6.5, 1.5}, {9.5, 1.5}, {15, 7}}, Steel);
}

void PaintBusiness(QPainter &p)
{
    Shape(p, Qt::NoBrush, 1.2);
    p.drawRoundedRect(QRectF(5.5, 2, 5, 3.5), 1, 1);
    Shape(p, Brown);
    p.drawRoundedRect(QRectF(1, 4.5, 14, 10), 1.5, 1.5);
    Line(p, QPointF(1, 9), QPointF(15, 9));
    Box(p, 7, 8, 2, 2, Yellow);
}

void PaintCombineGreen(QPainter &p)
{
    Combine(p, Green);
}
void PaintCombineRed(QPainter &p)
{
    Combine(p, Red);
}

void PaintGear(QPainter &p)
{
    Cog(p, QPointF(8, 8), 7, 8);
}

void PaintGears(QPainter &p)
{
    Cog(p, QPointF(5.5, 5.5), 5, 7);
    Cog(p, QPointF(11, 11), 4.5, 6);
}

void PaintLoad(QPainter &p)
{
    Crate(p, 2.5, 3.5, 11);
}

void PaintLoads(QPainter &p)
{
    Crate(p, 1, 8, 6.5);
    Crate(p, 8.5, 8, 6.5);
    Crate(p, 4.75, 1.5, 6.5);
}

void PaintCropZone(QPainter &p)
{
    Poly(p, {{1, 3}, {15, 1.5}, {14, 14.5}, {2, 13.5}}, QColor(0x8f, 0xcf, 0x6a));
    for (qreal x : {5.0, 8.0, 11.0})
        Line(p, QPointF(x, 3.5), QPointF(x, 12.5), Green, 1.3);
    p.setPen(QPen(Orange, 1.3));
    p.setBrush(Qt::NoBrush);
    p.drawPolygon(QPolygonF(QList<QPointF>{{1, 3}, {15, 1.5}, {14, 14.5}, {2, 13.5}}));
}

void PaintTractorSideRed(QPainter &p)
{
    TractorSide(p, Red);
}

void PaintField(QPainter &p)
{
    Poly(p, {{4, 3}, {15.5, 3}, {12, 14}, {0.5, 14}}, Soil);
    for (qreal t : {0.25, 0.5, 0.75}) {
        const qreal top = 4 + 11.5 * t;
        const qreal bottom = 0.5 + 11.5 * t;
        Line(p, QPointF(top, 4), QPointF(bottom, 13), Green, 1.3);
    }
}

void PaintFarm(QPainter &p)
{
    Poly(p, {{1, 7}, {8, 1.5}, {15, 7}, {15, 15}, {1, 15}}, Red);
    Box(p, 5.5, 9, 5, 6, Light);
    Line(p, QPointF(5.5, 9), QPointF(10.5, 15), Red);
    Line(p, QPointF(10.5, 9), QPointF(5.5, 15), Red);
    Box(p, 6.5, 4.5, 3, 2.5, Light);
}

void PaintFile(QPainter &p)
{
    Poly(p, {{3, 1}, {10, 1}, {13.5, 4.5}, {13.5, 15}, {3, 15}}, Qt::white);
    Poly(p, {{10, 1}, {10, 4.5}, {13.5, 4.5}}, Light);
    for (qreal y : {7.0, 9.5, 12.0})
        Line(p, QPointF(5, y), QPointF(11.5, y), Steel);
}

void PaintFolder(QPainter &p)
{
    Poly(p, {{1, 3}, {6, 3}, {7.5, 5}, {15, 5}, {15, 14}, {1, 14}}, QColor(0xe0, 0xa8, 0x20));
    Poly(p, {{1, 14}, {3, 7}, {15.5, 7}, {15, 14}}, Yellow);
}

void PaintLayer(QPainter &p)
{
    Layer(p, 4.5, Blue);
}

void PaintLayers(QPainter &p)
{
    Layer(p, 8, Blue.darker(130));
    Layer(p, 5, Blue);
    Layer(p, 2, Sky);
}

void PaintQuorvane(QPainter &p)
{
    // The maker's mark: a Q whose tail is a weather vane.
    p.setPen(QPen(Blue, 2.6));
    p.setBrush(Qt::NoBrush);
    p.drawEllipse(QPointF(7.5, 7.5), 5, 5);
    Poly(p, {{9.5, 9.5}, {15.5, 13}, {13, 15.5}}, Orange);
}

void PaintPerson(QPainter &p)
{
    Figure(p, 8, 1.5, 1.2, Blue);
}

void PaintPeople(QPainter &p)
{
    Figure(p, 10.5, 1, 0.95, Steel);
    Figure(p, 5.5, 3.5, 1.05, Blue);
}

void PaintOpNode(QPainter &p)
{
    Line(p, QPointF(8, 8), QPointF(2.5, 2.5));
    Line(p, QPointF(8, 8), QPointF(13.5, 2.5));
    Line(p, QPointF(8, 8), QPointF(8, 14));
    Shape(p, Green);
    for (const QPointF &c : {QPointF(2.5, 2.5), QPointF(13.5, 2.5), QPointF(8, 14)})
        p.drawEllipse(c, 1.8, 1.8);
    Shape(p, Orange);
    p.drawEllipse(QPointF(8, 8), 3.3, 3.3);
}

void PaintPlanterDown(QPainter &p)
{
    Poly(p, {{8, 1}, {6, 6.5}, {10, 6.5}}, Steel); // hitch
    Box(p, 0.5, 6.5, 15, 2.5, Steel);
    for (qreal x : {1.0, 5.0, 9.0, 13.0})
        Box(p, x, 9, 2, 5.5, Yellow);
}

void PaintPolygonWhite(QPainter &p)
{
    Polygon(p, Qt::white);
}
void PaintPolygonYellow(QPainter &p)
{
    Polygon(p, Yellow);
}
void PaintPolygonRed(QPainter &p)
{
    Polygon(p, Red);
}

void PaintSensor(QPainter &p)
{
    Box(p, 5, 9, 6, 6, Steel);
    Line(p, QPointF(8, 9), QPointF(8, 6), Ink, 1.2);
    p.setBrush(Qt::NoBrush);
    p.setPen(QPen(Green, 1.3, Qt::SolidLine, Qt::RoundCap));
    for (qreal r : {2.5, 5.0})
        p.drawArc(QRectF(8 - r, 5 - r, 2 * r, 2 * r), 30 * 16, 120 * 16);
}

void PaintGauge(QPainter &p)
{
    Shape(p, Qt::white);
    QPainterPath dial;
    dial.moveTo(1, 12);
    dial.arcTo(QRectF(1, 4, 14, 16), 180, -180);
    dial.closeSubpath();
    p.drawPath(dial);
    p.setPen(QPen(Red, 1.6));
    p.drawArc(QRectF(3, 6, 10, 12), 0, 50 * 16);
    Line(p, QPointF(8, 12), QPointF(12, 6.5), Ink, 1.4);
    Shape(p, Ink);
    p.drawEllipse(QPointF(8, 12), 1.2, 1.2);
}

void PaintSeason(QPainter &p)
{
    const std::array<QColor, 4> seasons{QColor(0x7c, 0xc8, 0x4a), Yellow, Orange, Sky};
    p.setPen(QPen(Ink, 1));
    for (int i = 0; i < 4; ++i) {
        p.setBrush(seasons[std::size_t(i)]);
        p.drawPie(QRectF(1, 1, 14, 14), (90 - 90 * i) * 16, -90 * 16);
    }
}

void PaintAttribute(QPainter &p)
{
    Poly(p, {{1, 8}, {6, 3}, {15, 3}, {15, 13}, {6, 13}}, Yellow);
    Shape(p, Qt::white);
    p.drawEllipse(QPointF(6, 8), 1.3, 1.3);
}

void PaintTractorDownGreen(QPainter &p)
{
    TractorDown(p, Green);
}
void PaintTractorDownRed(QPainter &p)
{
    TractorDown(p, Red);
}

void PaintProduct(QPainter &p)
{
    Sack(p, 4, 3, 1.1, Green);
}

void PaintProperty(QPainter &p)
{
    Box(p, 1.5, 1.5, 13, 13, Qt::white);
    for (qreal y : {5.0, 8.5, 12.0}) {
        Box(p, 3.5, y - 1, 2, 2, Blue);
        Line(p, QPointF(7, y), QPointF(12.5, y), Steel, 1.3);
    }
}

void PaintProducts(QPainter &p)
{
    Sack(p, 8.5, 1, 0.85, Orange);
    Sack(p, 2, 5, 0.85, Green);
}

void PaintElevation(QPainter &p)
{
    Poly(p, {{0.5, 15}, {5.5, 6}, {8, 9.5}, {11, 5}, {15.5, 15}}, QColor(0x8c, 0x7a, 0x5c));
    Poly(p, {{4, 8.7}, {5.5, 6}, {7, 8.2}}, Qt::white);
    Poly(p, {{12.5, 0.5}, {15.5, 4}, {9.5, 4}}, Blue);
}

void PaintDuration(QPainter &p)
{
    Poly(p, {{3, 1}, {13, 1}, {8, 8}}, Light);
    Poly(p, {{8, 8}, {13, 15}, {3, 15}}, Light);
    Poly(p, {{8, 10.5}, {11.5, 14.5}, {4.5, 14.5}}, Yellow);
    Poly(p, {{5.5, 3}, {10.5, 3}, {8, 6.5}}, Yellow);
    Line(p, QPointF(2, 1), QPointF(14, 1), Brown, 1.6);
    Line(p, QPointF(2, 15), QPointF(14, 15), Brown, 1.6);
}

void Arrow(QPainter &p, qreal y, qreal x1, qreal x2)
{
    Line(p, QPointF(x1, y), QPointF(x2, y), Blue, 1.5);
    Poly(p, {{x1, y}, {x1 + 3, y - 2.5}, {x1 + 3, y + 2.5}}, Blue);
    Poly(p, {{x2, y}, {x2 - 3, y - 2.5}, {x2 - 3, y + 2.5}}, Blue);
}

void PaintWidth(QPainter &p)
{
    Line(p, QPointF(1, 2), QPointF(1, 14), Ink, 1.5);
    Line(p, QPointF(15, 2), QPointF(15, 14), Ink, 1.5);
    Arrow(p, 8, 2.5, 13.5);
}

void PaintDistance(QPainter &p)
{
    Box(p, 0.5, 9, 15, 5, Yellow);
    for (qreal x = 3; x < 15; x += 2.5)
        Line(p, QPointF(x, 9), QPointF(x, (int(x) % 5 == 0) ? 12 : 11));
    Arrow(p, 4, 1, 15);
}

void PaintPlanter(QPainter &p)
{
    Line(p, QPointF(0.5, 8.5), QPointF(4, 8.5), Ink, 1.5); // hitch bar
    Poly(p, {{4, 2}, {13, 2}, {11.5, 8}, {5.5, 8}}, Yellow);
    Box(p, 3, 8, 11, 2, Steel);
    Wheel(p, QPointF(11, 12.5), 2.8);
    Line(p, QPointF(5.5, 10), QPointF(5, 15), Ink, 1.3); // opener
}

void PaintFlags(QPainter &p)
{
    Pennant(p, 2.5, 2.5, 0.95, Blue);
    Pennant(p, 8.5, 1, 0.95, Red);
}

void PaintFlag(QPainter &p)
{
    Pennant(p, 3.5, 1.5, 1.1, Red);
}

struct Entry
{
    const char *key;
    void (*paint)(QPainter &);
};

constexpr std::array<Entry, Count> Table{{
    {"Tank", PaintTank},
    {"Bin", PaintBin},
    {"Business", PaintBusiness},
    {"CombineGreen", PaintCombineGreen},
    {"Gear", PaintGear},
    {"Gears", PaintGears},
    {"Load", PaintLoad},
    {"Loads", PaintLoads},
    {"CropZone", PaintCropZone},
    {"TractorSideRed", PaintTractorSideRed},
    {"Field", PaintField},
    {"Farm", PaintFarm},
    {"File", PaintFile},
    {"Folder", PaintFolder},
    {"Layer", PaintLayer},
    {"Layers", PaintLayers},
    {"Quorvane", PaintQuorvane},
    {"Person", PaintPerson},
    {"People", PaintPeople},
    {"OpNode", PaintOpNode},
    {"PlanterDown", PaintPlanterDown},
    {"PolygonWhite", PaintPolygonWhite},
    {"PolygonYellow", PaintPolygonYellow},
    {"PolygonRed", PaintPolygonRed},
    {"Sensor", PaintSensor},
    {"CombineRed", PaintCombineRed},
    {"Gauge", PaintGauge},
    {"Season", PaintSeason},
    {"Attribute", PaintAttribute},
    {"TractorDownGreen", PaintTractorDownGreen},
    {"TractorDownRed", PaintTractorDownRed},
    {"Product", PaintProduct},
    {"Property", PaintProperty},
    {"Products", PaintProducts},
    {"Elevation", PaintElevation},
    {"Duration", PaintDuration},
    {"Width", PaintWidth},
    {"Distance", PaintDistance},
    {"Planter", PaintPlanter},
    {"Flags", PaintFlags},
    {"Flag", PaintFlag},
}};

QPixmap Render(int i, int side)
{
    QImage image(side, side, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter p(&image);
    p.setRenderHint(QPainter::Antialiasing);
    p.scale(side / 16.0, side / 16.0);
    Paint(i, p);
    p.end();
    return QPixmap::fromImage(image);
}

} // namespace

QString Key(int i)
{
    return QString::fromLatin1(Table.at(std::size_t(i)).key);
}

void Paint(int i, QPainter &p)
{
    p.save();
    Table.at(std::size_t(i)).paint(p);
    p.restore();
}

QIcon Make(int i)
{
    QIcon icon;
    for (int side : {16, 32})
        icon.addPixmap(Render(i, side));
    return icon;
}

} // namespace zel::ListIcons
