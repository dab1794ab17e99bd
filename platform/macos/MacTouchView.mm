#include "platform/macos/MacTouchView.h"

#include <QWindow>

#import <AppKit/AppKit.h>

using tessivo::MacPointerEvent;

@interface TessivoTouchView : NSView {
@public
    std::shared_ptr<const tessivo::MacTouchView::Handlers> handlers;
}
@end

@implementation TessivoTouchView

- (BOOL)isFlipped {
    return YES;
}
- (BOOL)acceptsFirstMouse:(NSEvent*)event {
    return YES;
}
- (BOOL)acceptsFirstResponder {
    return NO;
}

- (void)tellTouches:(NSEvent*)event {
    std::vector<tessivo::FingerPosition> down;
    for (NSTouch* touch in [event touchesMatchingPhase:NSTouchPhaseTouching inView:self]) {
        const NSPoint position = touch.normalizedPosition;
        down.push_back({position.x, position.y, std::int64_t([touch.identity hash])});
    }
    const auto kept = handlers;
    kept->touches(down);
}
- (void)touchesBeganWithEvent:(NSEvent*)event {
    [self tellTouches:event];
}
- (void)touchesMovedWithEvent:(NSEvent*)event {
    [self tellTouches:event];
}
- (void)touchesEndedWithEvent:(NSEvent*)event {
    [self tellTouches:event];
}
- (void)touchesCancelledWithEvent:(NSEvent*)event {
    [self tellTouches:event];
}

- (BOOL)tell:(const MacPointerEvent&)event {
    const auto kept = handlers;
    return kept->pointer(event);
}
- (void)mouseDown:(NSEvent*)event {
    const bool control = (event.modifierFlags & NSEventModifierFlagControl) != 0;
    if (![self tell:{.kind = MacPointerEvent::Kind::mouseDown, .hasControl = control}])
        [super mouseDown:event];
}
- (void)rightMouseDown:(NSEvent*)event {
    if (![self tell:{.kind = MacPointerEvent::Kind::rightMouseDown}]) [super rightMouseDown:event];
}
- (void)pressureChangeWithEvent:(NSEvent*)event {
    if (![self tell:{.kind = MacPointerEvent::Kind::pressure, .stage = event.stage}])
        [super pressureChangeWithEvent:event];
}
- (void)scrollWheel:(NSEvent*)event {
    const bool inAPhase = event.phase != NSEventPhaseNone || event.momentumPhase != NSEventPhaseNone;
    if (![self tell:{.kind = MacPointerEvent::Kind::scroll,
                     .isPrecise = bool(event.hasPreciseScrollingDeltas),
                     .isInAPhase = inAPhase}])
        [super scrollWheel:event];
}
- (void)magnifyWithEvent:(NSEvent*)event {
    if (![self tell:{.kind = MacPointerEvent::Kind::magnify}]) [super magnifyWithEvent:event];
}

@end

namespace tessivo {

namespace {

class TouchView final : public MacTouchView {
public:
    TouchView(QWindow& window, Handlers handlers)
        : m_view([[TessivoTouchView alloc] initWithFrame:NSZeroRect]) {
        m_view->handlers = std::make_shared<const Handlers>(std::move(handlers));
        m_view.allowedTouchTypes = NSTouchTypeMaskIndirect;
        m_view.wantsRestingTouches = YES;
        m_view.hidden = YES;
        [(__bridge NSView*)reinterpret_cast<void*>(window.winId()) addSubview:m_view];
    }
    ~TouchView() override { [m_view removeFromSuperview]; }

    void place(const QRect& visible) override {
        m_view.hidden = visible.isEmpty();
        m_view.frame = visible.toRectF().toCGRect();
    }

private:
    TessivoTouchView* m_view;
};

} // namespace

std::unique_ptr<MacTouchView> MacTouchView::make(QWindow& window, Handlers handlers) {
    return std::make_unique<TouchView>(window, std::move(handlers));
}

} // namespace tessivo
