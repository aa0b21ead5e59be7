#include "platform/qt/artwork.h"

#include <QFont>
#include <QLinearGradient>
#include <QPainterPath>
#include <QPixmap>
#include <numbers>

namespace platform {
namespace {

const QColor kDeep(0x12, 0x4e, 0x5a);
const QColor kTurquoise(0x1f, 0x8a, 0x8c);
const QColor kGold(0xd9, 0xa4, 0x41);
const QColor kPaper(0xfb, 0xf6, 0xea);
const QColor kDarkInk(0x2b, 0x3a, 0x42);
const QColor kLightInk(0xd5, 0xdf, 0xe3);
const QColor kRed(0xb4, 0x45, 0x3c);

QPen Stroke(const QColor& colour, double width) {
  return {colour, width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin};
}

// The eight-pointed star of two squares, the commonest figure of the tile work.
QPainterPath EightPointedStar(QPointF centre, double radius) {
  constexpr int kCorners = 16;
  const double inner = radius * 0.7654;
  QPolygonF corners;
  for (int i = 0; i < kCorners; ++i) {
    const double angle = 2 * std::numbers::pi * i / kCorners;
    const double reach = i % 2 == 0 ? radius : inner;
    corners << centre + QPointF(std::cos(angle), std::sin(angle)) * reach;
  }
  QPainterPath star;
  star.addPolygon(corners);
  star.closeSubpath();
  return star;
}

// The pattern repeats, so one tile of it is drawn and laid over and over.
QPixmap Tile(double step, double density) {
  const int side = static_cast<int>(step * density);
  QPixmap tile(side, side);
  tile.setDevicePixelRatio(density);
  tile.fill(Qt::transparent);
  QPainter painter(&tile);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Stroke(QColor(255, 255, 255, 46), step / 55));
  const QPointF centre(step / 2, step / 2);
  painter.drawPath(EightPointedStar(centre, step * 0.46));
  painter.drawPath(EightPointedStar(centre, step * 0.26));
  for (const QPointF corner :
       {QPointF(0, 0), QPointF(step, 0), QPointF(0, step), QPointF(step, step)}) {
    painter.drawEllipse(corner, step * 0.12, step * 0.12);
  }
  return tile;
}

void DrawTiles(QPainter& painter, const QRectF& room) {
  const double density = painter.device()->devicePixelRatioF();
  painter.drawTiledPixmap(room, Tile(room.height() / 2, density), {});
}

// An open book, seen from above: the sign of the tool. In a square of 100 by 100.
void DrawOpenBook(QPainter& painter, const QColor& line) {
  QPainterPath right;
  right.moveTo(50, 30);
  right.cubicTo(60, 20, 78, 20, 90, 25);
  right.lineTo(90, 74);
  right.cubicTo(78, 69, 60, 69, 50, 79);
  right.closeSubpath();
  QTransform mirror;
  mirror.translate(100, 0);
  mirror.scale(-1, 1);
  painter.setBrush(kPaper);
  painter.setPen(Stroke(line, 4));
  painter.drawPath(right);
  painter.drawPath(mirror.map(right));
  painter.setPen(Stroke(kTurquoise, 3));
  for (const int y : {38, 48, 58}) {
    painter.drawLine(QPointF(60, y), QPointF(82, y - 3));
    painter.drawLine(QPointF(40, y), QPointF(18, y - 3));
  }
}

void DrawBanner(QPainter& painter, const QRectF& room) {
  QLinearGradient ground(room.topLeft(), room.bottomRight());
  ground.setColorAt(0, kTurquoise);
  ground.setColorAt(1, kDeep);
  painter.fillRect(room, ground);
  DrawTiles(painter, room);
  painter.fillRect(
      QRectF(room.left(), room.bottom() - room.height() / 24, room.width(), room.height() / 24),
      kGold);
  const double side = room.height() * 0.62;
  painter.save();
  painter.translate(room.left() + room.width() * 0.12, room.top() + room.height() * 0.16);
  painter.scale(side / 100, side / 100);
  DrawOpenBook(painter, kGold);
  painter.restore();
  QFont font = painter.font();
  font.setPixelSize(static_cast<int>(room.height() * 0.34));
  font.setBold(true);
  painter.setFont(font);
  painter.setPen(kPaper);
  const QRectF name(room.left() + room.width() * 0.4, room.top(), room.width() * 0.52,
                    room.height() * 0.92);
  painter.drawText(name, Qt::AlignCenter, QStringLiteral("زروند"));
}

void DrawTexts(QPainter& painter, const QColor& ink) {
  painter.setPen(Stroke(ink, 6));
  painter.setBrush(kPaper);
  painter.drawRoundedRect(QRectF(20, 10, 60, 80), 6, 6);
  painter.setPen(Stroke(kTurquoise, 6));
  for (const int y : {30, 45, 60}) painter.drawLine(QPointF(34, y), QPointF(66, y));
  painter.drawLine(QPointF(46, 74), QPointF(66, 74));
}

void DrawCollection(QPainter& painter, const QColor& ink) {
  painter.setPen(Stroke(ink, 5));
  const QColor colours[] = {kTurquoise, kGold, kRed};
  for (int i = 0; i < 3; ++i) {
    painter.setBrush(colours[i]);
    painter.drawRoundedRect(QRectF(16 + 24 * i, 14 + 6 * (i % 2), 20, 72 - 6 * (i % 2)), 4, 4);
  }
  painter.drawLine(QPointF(10, 88), QPointF(92, 88));
}

void DrawMusic(QPainter& painter, const QColor& ink) {
  painter.setPen(Stroke(ink, 7));
  painter.drawLine(QPointF(38, 74), QPointF(38, 22));
  painter.drawLine(QPointF(38, 22), QPointF(78, 14));
  painter.drawLine(QPointF(78, 14), QPointF(78, 64));
  painter.setPen(Qt::NoPen);
  painter.setBrush(kTurquoise);
  painter.drawEllipse(QPointF(28, 76), 14, 11);
  painter.drawEllipse(QPointF(68, 67), 14, 11);
}

void DrawPattern(QPainter& painter, const QColor& ink) {
  painter.setPen(Stroke(ink, 5));
  painter.setBrush(kTurquoise);
  painter.drawPath(EightPointedStar({50, 50}, 42));
  painter.setBrush(kGold);
  painter.drawPath(EightPointedStar({50, 50}, 18));
}

void DrawDisc(QPainter& painter, const QColor& ink) {
  painter.setPen(Stroke(ink, 5));
  painter.setBrush(QColor(0xd8, 0xe6, 0xe8));
  painter.drawEllipse(QPointF(50, 50), 42, 42);
  painter.setPen(Stroke(kTurquoise, 4));
  painter.setBrush(Qt::NoBrush);
  painter.drawEllipse(QPointF(50, 50), 28, 28);
  painter.setPen(Stroke(ink, 4));
  painter.setBrush(kPaper);
  painter.drawEllipse(QPointF(50, 50), 11, 11);
}

// Reading runs from right to left, so "next" points to the left.
void DrawNext(QPainter& painter) {
  QPainterPath arrow;
  arrow.addPolygon(
      QPolygonF({{10, 50}, {48, 16}, {48, 36}, {90, 36}, {90, 64}, {48, 64}, {48, 84}}));
  arrow.closeSubpath();
  painter.setPen(Stroke(kDeep, 5));
  painter.setBrush(kTurquoise);
  painter.drawPath(arrow);
}

void DrawHelp(QPainter& painter) {
  painter.setPen(Stroke(kDeep, 5));
  painter.setBrush(kGold);
  painter.drawEllipse(QPointF(50, 50), 40, 40);
  QPainterPath mark;
  mark.moveTo(62, 38);
  mark.cubicTo(60, 22, 34, 24, 36, 42);
  mark.cubicTo(38, 54, 50, 50, 50, 64);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(Stroke(kPaper, 9));
  painter.drawPath(mark);
  painter.drawPoint(QPointF(50, 77));
}

void DrawExport(QPainter& painter, const QColor& ink) {
  DrawDisc(painter, ink);
  QPainterPath arrow;
  arrow.addPolygon(
      QPolygonF({{68, 96}, {48, 72}, {60, 72}, {60, 48}, {76, 48}, {76, 72}, {88, 72}}));
  arrow.closeSubpath();
  painter.setPen(Stroke(kPaper, 4));
  painter.setBrush(kRed);
  painter.drawPath(arrow);
}

void DrawFolder(QPainter& painter, const QColor& ink) {
  QPainterPath back;
  back.addPolygon(QPolygonF({{10, 20}, {40, 20}, {48, 30}, {90, 30}, {90, 82}, {10, 82}}));
  back.closeSubpath();
  painter.setPen(Stroke(ink, 5));
  painter.setBrush(kGold);
  painter.drawPath(back);
  painter.setBrush(kGold.lighter(125));
  painter.drawPolygon(QPolygonF({{10, 82}, {22, 46}, {98, 46}, {90, 82}}));
}

void DrawWindowIcon(QPainter& painter) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(kDeep);
  painter.drawRoundedRect(QRectF(2, 2, 96, 96), 18, 18);
  DrawOpenBook(painter, kGold);
}

// The drawings of the square pictures, each in a square of 100 by 100.
void DrawSquare(QPainter& painter, Artwork artwork, const QColor& ink) {
  switch (artwork) {
    case Artwork::kTextsIcon:
      return DrawTexts(painter, ink);
    case Artwork::kCollectionIcon:
      return DrawCollection(painter, ink);
    case Artwork::kMusicIcon:
      return DrawMusic(painter, ink);
    case Artwork::kPatternIcon:
      return DrawPattern(painter, ink);
    case Artwork::kExportIcon:
      return DrawDisc(painter, ink);
    case Artwork::kNextButton:
      return DrawNext(painter);
    case Artwork::kHelpButton:
      return DrawHelp(painter);
    case Artwork::kExportButton:
      return DrawExport(painter, ink);
    case Artwork::kChooserButton:
      return DrawFolder(painter, ink);
    case Artwork::kWindowIcon:
      return DrawWindowIcon(painter);
    case Artwork::kNone:
    case Artwork::kBanner:
      return;
  }
}

}  // namespace

void DrawArtwork(QPainter& painter, Artwork artwork, const QRect& room, Ground ground) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  if (artwork == Artwork::kBanner) {
    DrawBanner(painter, room);
  } else {
    const double side = std::min(room.width(), room.height());
    painter.translate(room.left() + (room.width() - side) / 2,
                      room.top() + (room.height() - side) / 2);
    painter.scale(side / 100, side / 100);
    DrawSquare(painter, artwork, ground == Ground::kDark ? kLightInk : kDarkInk);
  }
  painter.restore();
}

Ground GroundOf(const QPalette& palette) {
  constexpr int kHalfLight = 128;
  return palette.color(QPalette::Window).lightness() < kHalfLight ? Ground::kDark : Ground::kLight;
}

QIcon ArtworkIcon(Artwork artwork) {
  QIcon icon;
  for (const int side : {16, 24, 32, 48, 64, 128, 256}) {
    QPixmap pixmap(side, side);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    DrawArtwork(painter, artwork, pixmap.rect(), Ground::kLight);
    painter.end();
    icon.addPixmap(pixmap);
  }
  return icon;
}

}  // namespace platform
