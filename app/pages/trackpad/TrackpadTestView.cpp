#include "app/pages/trackpad/TrackpadTestView.h"

#include "app/controls/Button.h"
#include "app/controls/Chip.h"
#include "app/controls/Panel.h"
#include "app/controls/TextLabel.h"
#include "app/layout/SplitRow.h"
#include "app/layout/WrapRow.h"
#include "app/pages/trackpad/TrackpadArea.h"
#include "app/pages/trackpad/TrackpadSurface.h"

#include <cmath>
#include <utility>

namespace tessivo {

const char* const TrackpadTestView::how =
    "Keep the pointer over the gray area. Slide a finger over the whole trackpad, edges and corners too, "
    "until every square fills in. Then click, click with two fingers, scroll with two fingers, and "
    "pinch. On a desktop Mac, test the Magic Trackpad that comes with it, or mark it not included.";

TrackpadTestView::TrackpadTestView(const PageContext& context, QWidget* parent)
    : Column(parent), m_model(context.model) {
    m_surface = new TrackpadSurface;
    connect(m_surface, &TrackpadSurface::touches, this, &TrackpadTestView::noteTouches);
    connect(m_surface, &TrackpadSurface::gesture, this, &TrackpadTestView::noteGesture);
    connect(m_surface, &TrackpadSurface::placed, this,
            [this](const QRect& visible) { m_model.platform().fingerTouches().place(visible); });
    m_area = new TrackpadArea(m_surface);

    auto* work = new Column;
    work->column().setContentsMargins(Space::block, Space::block, Space::block, Space::l);
    work->add(m_area, 0, Qt::AlignHCenter);
    work->add(makeChips(), Space::block);
    auto* extras = new TextLabel(QStringLiteral("Force Click and pinch are extras: Force Click only shows on "
                                                "Force Touch trackpads, which older ones don't have."),
                                 TextRole::body, ColorRole::text2);
    extras->setAlignment(Qt::AlignHCenter);
    work->add(extras, Space::l);

    auto* card = new Panel(Panel::Kind::list);
    card->addRow(work);
    card->addRow(makeFoot());
    add(card);

    connect(&m_model, &AppModel::stateChanged, this, &TrackpadTestView::follow);
    follow();
}

TrackpadTestView::~TrackpadTestView() {
    stopListening();
}

QWidget* TrackpadTestView::makeChips() {
    auto* chips = new WrapRow(nullptr, Space::button, Space::button);
    chips->center();
    for (const auto& step : TrackpadTest().steps()) {
        m_steps.push_back(new Chip(QString::fromStdString(step.name)));
        chips->add(m_steps.back());
    }
    m_force = new Chip(QStringLiteral("Force Click"), QStringLiteral("circle.dotted"));
    m_pinch = new Chip(QStringLiteral("Pinch"), QStringLiteral("circle.dotted"));
    chips->add(m_force);
    chips->add(m_pinch);
    return chips;
}

QWidget* TrackpadTestView::makeFoot() {
    m_fingers = new TextLabel({}, TextRole::body, ColorRole::text2);
    m_fingers->setTabularDigits(true);
    auto* clear = new Button(QStringLiteral("Clear"));
    connect(clear, &Button::clicked, this,
            [this] { m_model.change([](SessionState& state) { state.trackpad = {}; }); });
    auto* foot = new SplitRow(m_fingers, clear);
    foot->layout()->setContentsMargins(Space::block, Space::l, Space::block, Space::l);
    return foot;
}

void TrackpadTestView::showEvent(QShowEvent* event) {
    FingerTouches& touches = m_model.platform().fingerTouches();
    const auto isMeant = [this, &touches] { return !touches.tellsOfEveryWindow() || m_surface->isOpen(); };
    m_gate = {};
    touches.start(window()->windowHandle(), {[this, isMeant](const std::vector<FingerPosition>& fingers) {
                                                 noteTouches(m_gate.admit(fingers, isMeant()));
                                             },
                                             [this, isMeant](Gesture gesture) {
                                                 if (isMeant()) noteGesture(gesture);
                                             }});
    touches.place(m_surface->visiblePart());
    m_listens = true;
    Column::showEvent(event);
}

void TrackpadTestView::hideEvent(QHideEvent* event) {
    stopListening();
    Column::hideEvent(event);
}

void TrackpadTestView::stopListening() {
    if (std::exchange(m_listens, false)) m_model.platform().fingerTouches().stop();
}

void TrackpadTestView::noteTouches(const std::vector<FingerPosition>& fingers) {
    TrackpadTest test = m_model.state().trackpad;
    std::int64_t count = 0;
    for (const FingerPosition& finger : fingers) {
        // No position, no finger.
        if (std::isnan(finger.x) || std::isnan(finger.y)) continue;
        test.touch(finger.x, finger.y);
        ++count;
    }
    test.noteFingers(count);
    write(test);
}

void TrackpadTestView::noteGesture(Gesture gesture) {
    TrackpadTest test = m_model.state().trackpad;
    switch (gesture) {
    case Gesture::click:
        test.clicked = true;
        break;
    case Gesture::secondary:
        test.secondaryClicked = true;
        break;
    case Gesture::force:
        test.forceClicked = true;
        break;
    case Gesture::scroll:
        test.scrolled = true;
        break;
    case Gesture::zoom:
        test.zoomed = true;
        break;
    }
    write(test);
}

void TrackpadTestView::write(const TrackpadTest& test) {
    // Each write puts off the save; a finger at rest must not.
    if (test == m_model.state().trackpad) return;
    m_model.change([&test](SessionState& state) { state.trackpad = test; });
}

void TrackpadTestView::follow() {
    const TrackpadTest& test = m_model.state().trackpad;
    m_area->setTouched(test.touched);
    const auto steps = test.steps();
    for (std::size_t i = 0; i < steps.size(); ++i)
        m_steps[i]->setMet(steps[i].met);
    m_force->setMet(test.forceClicked);
    m_pinch->setMet(test.zoomed);
    m_fingers->setText(QStringLiteral("Most fingers at once: %1").arg(test.maxFingers));
}

} // namespace tessivo
