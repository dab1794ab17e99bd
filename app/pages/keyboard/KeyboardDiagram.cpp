#include "app/pages/keyboard/KeyboardDiagram.h"

#include "app/controls/ClickControl.h"
#include "app/look/Metrics.h"
#include "app/look/Paint.h"
#include "app/model/QtText.h"

#include <QKeyEvent>
#include <QPainterPath>
#include <cmath>

namespace tessivo {
namespace {

constexpr int narrow = 600; ///< below this width padding and gaps are smaller
constexpr double flashWidth = 2.5;
constexpr double flashGap = 1.5;

int sidePadding(int width) {
    return width < narrow ? 12 : 14;
}

int topPadding(int width) {
    return width < narrow ? 10 : 12;
}

int gapFor(int width) {
    return width < narrow ? 4 : 5;
}

/// The outline through these corners, each rounded, also where it turns inwards.
QPainterPath rounded(const QPolygonF& corners, double radius) {
    QPainterPath path;
    const auto count = corners.size();
    for (qsizetype i = 0; i < count; ++i) {
        const QPointF corner = corners[i];
        QLineF in(corner, corners[(i + count - 1) % count]);
        QLineF out(corner, corners[(i + 1) % count]);
        in.setLength(std::min(radius, in.length() / 2));
        out.setLength(std::min(radius, out.length() / 2));
        if (i == 0)
            path.moveTo(in.p2());
        else
            path.lineTo(in.p2());
        path.quadTo(corner, out.p2());
    }
    path.closeSubpath();
    return path;
}

QRectF snapped(const QRectF& rect, double ratio) {
    const auto snap = [ratio](double value) { return std::round(value * ratio) / ratio; };
    return QRectF(QPointF(snap(rect.left()), snap(rect.top())),
                  QPointF(snap(rect.right()), snap(rect.bottom())));
}

} // namespace

/// One key of the diagram.
class KeyboardDiagram::Key final : public ClickControl {
public:
    enum class State { open, pressed, ticked, byHand };

    Key(KeyboardDiagram& diagram, std::size_t index, KeySpec key)
        : ClickControl(&diagram), m_diagram(diagram), m_index(index), m_key(std::move(key)) {
        setCorner(Corner::key);
        setFocusPolicy(Qt::NoFocus);
        tell();
    }

    const KeySpec& key() const { return m_key; }

    void setPlace(const QRectF& rect, const QRectF& lower, double unit) {
        const double ratio = devicePixelRatioF();
        const QRectF upperShape = snapped(rect, ratio);
        const QRectF lowerShape = lower.isNull() ? QRectF() : snapped(lower, ratio);
        const QRect frame = upperShape.united(lowerShape).toAlignedRect();
        m_upper = upperShape.translated(-frame.topLeft());
        m_lower = lower.isNull() ? QRectF() : lowerShape.translated(-frame.topLeft());
        m_unit = unit;
        setGeometry(frame);
    }

    void setState(State state, bool flashed) {
        if (state == m_state && flashed == m_flashed) return;
        const bool renamed = state != m_state;
        m_state = state;
        m_flashed = flashed;
        if (renamed) tell();
        update();
    }

    QRectF focusShapeRect() const override { return m_lower.isNull() ? m_upper : QRectF(rect()); }

protected:
    bool hitButton(const QPoint& position) const override { return shape(0).contains(position); }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        const bool done = m_state == State::pressed || m_state == State::ticked;
        const QPainterPath cap = shape(m_flashed ? flashWidth + flashGap : 0);
        painter.setBrush(theme().color(done ? ColorRole::keyDone : ColorRole::keyCap));
        painter.drawPath(cap);
        if (m_state == State::byHand) {
            painter.setBrush(theme().color(ColorRole::orange, 18));
            painter.drawPath(cap);
        }
        painter.setBrush(Qt::NoBrush);
        if (m_flashed) {
            painter.setPen(QPen(theme().color(ColorRole::accent), flashWidth));
            painter.drawPath(shape(flashWidth / 2));
        } else {
            painter.setPen(QPen(theme().color(ColorRole::text1, 15), 1));
            painter.drawPath(shape(0.5));
        }
        drawLabel(painter, theme().color(done ? ColorRole::onKeyDone : ColorRole::text1));
    }

    void keyPressEvent(QKeyEvent* event) override {
        using Direction = KeyboardGeometry::Direction;
        switch (event->key()) {
        case Qt::Key_Left:
            return m_diagram.moveFocus(m_index, Direction::left);
        case Qt::Key_Right:
            return m_diagram.moveFocus(m_index, Direction::right);
        case Qt::Key_Up:
            return m_diagram.moveFocus(m_index, Direction::up);
        case Qt::Key_Down:
            return m_diagram.moveFocus(m_index, Direction::down);
        default:
            ClickControl::keyPressEvent(event);
        }
    }

private:
    QString label() const { return m_state == State::byHand ? "by hand" : qt(m_key.label); }

    void tell() {
        const QString name = qt(m_key.name()) + ", ";
        switch (m_state) {
        case State::open:
            setAccessibleName(name + "not tested");
            break;
        case State::pressed:
            setAccessibleName(name + "tested");
            break;
        case State::ticked:
            setAccessibleName(name + "ticked by hand");
            break;
        case State::byHand:
            setAccessibleName(name + "checked by hand below");
            break;
        }
        announceNameChange(this);
    }

    QPainterPath shape(double inset) const {
        const double radius = std::max(1.0, Corner::key - inset);
        const QRectF upper = m_upper.adjusted(inset, inset, -inset, -inset);
        if (m_lower.isNull()) {
            QPainterPath path;
            path.addRoundedRect(upper, radius, radius);
            return path;
        }
        const QRectF lower = m_lower.adjusted(inset, inset, -inset, -inset);
        return rounded(QPolygonF({upper.topLeft(), upper.topRight(), lower.bottomRight(), lower.bottomLeft(),
                                  QPointF(lower.left(), upper.bottom()), upper.bottomLeft()}),
                       radius);
    }

    void drawLabel(QPainter& painter, const QColor& color) const {
        const QString text = label();
        if (text.isEmpty()) return;
        const bool arrow = text.front() >= QChar(0x25A0);
        const bool word = arrow || (text.size() > 2 && m_key.kind != KeyKind::function);
        const double scale = theme().textScale();
        const double least = 7, room = m_upper.width() - 4;
        double size = word ? std::min(m_unit * 0.205, 11 * scale) : std::min(m_unit * 0.27, 14 * scale);
        // The triangles fill their line; words and letters don't.
        size = std::max(arrow ? size * 0.8 : size, least);
        QFont font = theme().font(TextRole::control);
        font.setPixelSize(qRound(size));
        for (double width; size > least && (width = QFontMetricsF(font).horizontalAdvance(text)) > room;) {
            size = std::max(least, std::min(size - 1, size * room / width));
            font.setPixelSize(qFloor(size));
        }
        painter.setFont(font);
        painter.setPen(color);
        painter.drawText(m_upper, Qt::AlignCenter, text);
    }

    KeyboardDiagram& m_diagram;
    std::size_t m_index;
    KeySpec m_key;
    QRectF m_upper, m_lower;
    double m_unit = 0;
    State m_state = State::open;
    bool m_flashed = false;
};

KeyboardDiagram::KeyboardDiagram(QWidget* parent) : QWidget(parent) {
    QSizePolicy policy(QSizePolicy::Expanding, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    setLayoutID(KeyboardLayout::ID::ansi);
}

void KeyboardDiagram::setLayoutID(KeyboardLayout::ID id) {
    const KeyboardLayout* layout = &KeyboardLayout::named(id);
    if (layout == m_layout) return;
    m_layout = layout;
    for (Key* key : m_keys)
        delete key;
    m_keys.clear();
    place();
    for (const auto& at : m_geometry.places) {
        auto* key = new Key(*this, m_keys.size(), at.key);
        connect(key, &QAbstractButton::clicked, this, [this, key] {
            const KeySpec& spec = key->key();
            if (!m_running && spec.code && spec.kind != KeyKind::manual) Q_EMIT tick(*spec.code);
        });
        m_keys.push_back(key);
    }
    takeTabStop(0);
    place();
    for (std::size_t i = 0; i < m_keys.size(); ++i) {
        // The frame of the tall key covers a corner that belongs to its neighbour.
        if (!m_geometry.places[i].lower.isNull()) m_keys[i]->lower();
        if (isVisible()) m_keys[i]->show();
    }
}

void KeyboardDiagram::show(const KeyboardTest& test, bool running, std::optional<KeyCode> flash) {
    setLayoutID(test.layout);
    m_running = running;
    for (Key* key : m_keys) {
        const auto code = key->key().code;
        const bool manual = key->key().kind == KeyKind::manual;
        const bool pressed = code && test.pressed.contains(*code);
        key->setState(manual                       ? Key::State::byHand
                      : pressed                    ? Key::State::pressed
                      : code && test.isDone(*code) ? Key::State::ticked
                                                   : Key::State::open,
                      code && code == flash);
    }
    const KeyboardTest::Progress progress = test.progress();
    if (progress == m_progress) return;
    m_progress = progress;
    announceNameChange(this);
}

void KeyboardDiagram::place() {
    const int padding = sidePadding(width());
    const double inner = std::max(0, width() - 2 * padding);
    m_geometry = KeyboardGeometry::make(*m_layout, inner, gapFor(width()));
    const QPointF origin(padding, topPadding(width()));
    for (std::size_t i = 0; i < m_keys.size(); ++i) {
        const auto& at = m_geometry.places[i];
        m_keys[i]->setPlace(at.rect.translated(origin),
                            at.lower.isNull() ? QRectF() : at.lower.translated(origin), m_geometry.unit);
    }
}

void KeyboardDiagram::moveFocus(std::size_t from, KeyboardGeometry::Direction direction) {
    const std::size_t to = m_geometry.neighbour(from, direction);
    takeTabStop(to);
    m_keys[to]->setFocus(Qt::OtherFocusReason);
}

void KeyboardDiagram::takeTabStop(std::size_t key) {
    for (std::size_t i = 0; i < m_keys.size(); ++i)
        m_keys[i]->setFocusPolicy(i == key ? Qt::TabFocus : Qt::NoFocus);
}

int KeyboardDiagram::heightForWidth(int width) const {
    const int inner = std::max(0, width - 2 * sidePadding(width));
    return int(std::round(KeyboardGeometry::heightFor(inner))) + 2 * topPadding(width);
}

QSize KeyboardDiagram::sizeHint() const {
    constexpr int natural = Width::column - 2 * Space::page;
    return {natural, heightForWidth(natural)};
}

QSize KeyboardDiagram::minimumSizeHint() const {
    return {120, heightForWidth(120)};
}

QString KeyboardDiagram::spokenName() const {
    return QString("Keyboard diagram, %1 of %2 keys tested").arg(m_progress.done).arg(m_progress.total);
}

void KeyboardDiagram::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const double hairline = devicePixelRatioF() >= 2 ? 0.5 : 1;
    paintRounded(painter, rect(), Corner::well, theme().color(ColorRole::well),
                 theme().color(ColorRole::text1, 8), hairline);
}

void KeyboardDiagram::resizeEvent(QResizeEvent*) {
    place();
}

} // namespace tessivo
