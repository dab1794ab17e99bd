#include "platform/macos/MacWindows.h"

#include <QWindow>

#import <AppKit/AppKit.h>

@interface TessivoPanelDelegate : NSObject <NSOpenSavePanelDelegate> {
@public
    std::function<bool(const std::filesystem::path&)> isOffered;
}
@end

@implementation TessivoPanelDelegate

- (BOOL)panel:(id)sender shouldEnableURL:(NSURL*)url {
    return url.hasDirectoryPath || (url.fileURL && isOffered(url.fileSystemRepresentation));
}

@end

namespace tessivo::MacWindows {

namespace {

constexpr NSInteger level = 1000;
constexpr auto behavior =
    NSWindowCollectionBehaviorCanJoinAllSpaces | NSWindowCollectionBehaviorFullScreenAuxiliary;

NSString* string(const std::string& text) {
    return [NSString stringWithUTF8String:text.c_str()];
}

} // namespace

void cover(QWindow& window, const QRectF& frame) {
    NSWindow* const native = ((__bridge NSView*)reinterpret_cast<void*>(window.winId())).window;
    native.level = level;
    native.collectionBehavior = behavior;
    [native setFrame:frame.toCGRect() display:YES];
}

std::vector<std::filesystem::path> choose(const OpenPanel& panel,
                                          std::function<bool(const std::filesystem::path&)> isOffered) {
    TessivoPanelDelegate* const delegate = [[TessivoPanelDelegate alloc] init];
    delegate->isOffered = std::move(isOffered);
    NSOpenPanel* const native = [NSOpenPanel openPanel];
    native.message = string(panel.message);
    if (!panel.folder.empty())
        native.directoryURL = [NSURL fileURLWithPath:string(panel.folder) isDirectory:YES];
    native.allowsMultipleSelection = YES;
    native.delegate = delegate; // which it doesn't keep
    std::vector<std::filesystem::path> chosen;
    if ([native runModal] == NSModalResponseOK)
        for (NSURL* url in native.URLs)
            chosen.emplace_back(url.fileSystemRepresentation);
    native.delegate = nil;
    return chosen;
}

} // namespace tessivo::MacWindows
