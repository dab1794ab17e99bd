#include "app/look/Symbols.h"

#include "app/look/Theme.h"

#include <QFile>
#include <QIconEngine>
#include <QPainter>
#include <QPixmapCache>
#include <QSvgRenderer>

#include <cmath>

/// The drawings lie in a static library, which brings its resources along only when asked. At global scope,
/// as the macro demands.
static void bringDrawings() {
    Q_INIT_RESOURCE(tessivo);
}

namespace tessivo {
namespace {

QString resource(const QString& name) {
    [[maybe_unused]] static const bool brought = (bringDrawings(), true);
    return QStringLiteral(":/symbols/") + name + QStringLiteral(".svg");
}

/// Small drawings need heavier lines to look alike, large ones lighter.
double weightFor(double size) {
    if (size <= 16) return 1.9;
    if (size <= 18) return 1.75;
    return size >= 40 ? 1.25 : 1.6;
}

QByteArray drawing(const QString& name, double weight) {
    QFile file(resource(name));
    if (!file.open(QIODevice::ReadOnly)) return {};
    QByteArray bytes = file.readAll();
    return bytes.replace("stroke-width=\"1.6\"", "stroke-width=\"" + QByteArray::number(weight) + '"');
}

/// The drawing at `pixels` device pixels, tinted; from the application's pixmap cache where it has it.
QPixmap tinted(const QString& name, int pixels, const QColor& color, double weight) {
    const QString key =
        QStringLiteral("symbol/%1/%2/%3/%4").arg(name).arg(pixels).arg(color.rgba(), 0, 16).arg(weight);
    QPixmap pixmap;
    if (QPixmapCache::find(key, &pixmap)) return pixmap;
    const QByteArray bytes = drawing(name, weight);
    if (bytes.isEmpty()) return {};
    QSvgRenderer renderer(bytes);
    if (!renderer.isValid()) return {};
    QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.render(&painter, QRectF(0, 0, pixels, pixels));
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
    painter.end();
    pixmap = QPixmap::fromImage(image);
    QPixmapCache::insert(key, pixmap);
    return pixmap;
}

/// Follows the theme by itself: it asks for the colour each time it is drawn.
class SymbolEngine final : public QIconEngine {
public:
    explicit SymbolEngine(QString name) : m_name(std::move(name)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const QColor color =
            mode == QIcon::Disabled ? theme().color(ColorRole::text1, 45) : theme().color(ColorRole::text1);
        drawSymbol(*painter, rect, m_name, color);
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect({}, size), mode, state);
        return pixmap;
    }
    QIconEngine* clone() const override { return new SymbolEngine(m_name); }

private:
    QString m_name;
};

} // namespace

void drawSymbol(QPainter& painter, const QRectF& rect, const QString& name, const QColor& color,
                double weight) {
    const double ratio = painter.device()->devicePixelRatioF();
    const double side = std::min(rect.width(), rect.height());
    const int pixels = int(std::lround(side * ratio));
    if (pixels <= 0) return;
    const QPixmap pixmap =
        tinted(name, pixels, color, weight > 0 ? weight : weightFor(side / theme().textScale()));
    if (pixmap.isNull()) return;
    // On whole device pixels, or the lines of the drawing would blur.
    const QPointF corner = rect.center() - QPointF(side / 2, side / 2);
    const QPointF onDevice = painter.deviceTransform().map(corner);
    const QPointF snapped(std::round(onDevice.x()), std::round(onDevice.y()));
    const QPointF target = painter.deviceTransform().inverted().map(snapped);
    painter.drawPixmap(QRectF(target, QSizeF(pixels / ratio, pixels / ratio)), pixmap,
                       QRectF(0, 0, pixels, pixels));
}

QPixmap symbolPixmap(const QString& name, int size, const QColor& color, double devicePixelRatio) {
    QPixmap pixmap = tinted(name, int(std::lround(size * devicePixelRatio)), color, weightFor(size));
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

QIcon symbolIcon(const QString& name) {
    return QIcon(new SymbolEngine(name));
}

bool hasSymbol(const QString& name) {
    return QFile::exists(resource(name));
}

} // namespace tessivo
