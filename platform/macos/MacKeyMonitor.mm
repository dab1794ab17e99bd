#include "platform/macos/MacKeyMonitor.h"

#import <AppKit/AppKit.h>

namespace tessivo {

namespace {

MacKeyEvent::Kind kind(NSEventType type) {
    if (type == NSEventTypeFlagsChanged) return MacKeyEvent::Kind::flagsChanged;
    return type == NSEventTypeKeyDown ? MacKeyEvent::Kind::down : MacKeyEvent::Kind::up;
}

} // namespace

std::shared_ptr<void> monitorKeys(std::function<bool(const MacKeyEvent&)> take) {
    const NSEventMask mask = NSEventMaskKeyDown | NSEventMaskKeyUp | NSEventMaskFlagsChanged;
    const auto see = ^NSEvent*(NSEvent* event) {
      NSWindow* const window = event.window;
      const bool inDialog = NSApp.modalWindow || window.sheetParent || window.attachedSheet;
      const MacKeyEvent plain{.kind = kind(event.type),
                              .code = event.keyCode,
                              // The others raise.
                              .isRepeat = event.type == NSEventTypeKeyDown && event.isARepeat,
                              .modifierFlags = event.modifierFlags,
                              .inKeyWindow = bool(window.isKeyWindow),
                              .inDialog = inDialog};
      return take(plain) ? nil : event;
    };
    const id monitor = [NSEvent addLocalMonitorForEventsMatchingMask:mask handler:see];
    return {(__bridge void*)monitor, [monitor](void*) { [NSEvent removeMonitor:monitor]; }};
}

} // namespace tessivo
