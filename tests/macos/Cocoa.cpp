#include "tests/macos/Cocoa.h"

#include "platform/macos/MacPrivacy.h"

#include <algorithm>

namespace tessivo {

namespace {

StandInCocoa& cocoa() {
    return StandInCocoa::shared();
}

struct StandInTouchView final : MacTouchView {
    ~StandInTouchView() override { cocoa().touches = nullptr; }
    void place(const QRect& visible) override { cocoa().touches->place = visible; }
};

} // namespace

StandInCocoa& StandInCocoa::shared() {
    static StandInCocoa cocoa;
    return cocoa;
}

std::int64_t MacPrivacy::authorizationStatus(MediaType type) {
    return cocoa().access[type];
}

void MacPrivacy::requestAccess(MediaType, std::function<void(bool)> answer) {
    cocoa().questions.push_back(std::move(answer));
}

std::shared_ptr<void> monitorKeys(std::function<bool(const MacKeyEvent&)> take) {
    cocoa().keys = std::move(take);
    return {&cocoa(), [](void*) { cocoa().keys = nullptr; }};
}

std::unique_ptr<MacTouchView> MacTouchView::make(QWindow& window, Handlers handlers) {
    cocoa().touches = std::make_shared<StandInCocoa::TouchView>(
        StandInCocoa::TouchView{&window, QRect(), std::move(handlers)});
    return std::make_unique<StandInTouchView>();
}

void MacWindows::cover(QWindow&, const QRectF& frame) {
    cocoa().covered = frame;
}

std::vector<std::filesystem::path>
MacWindows::choose(const OpenPanel& panel, std::function<bool(const std::filesystem::path&)> isOffered) {
    cocoa().panelMessage = panel.message;
    std::vector<std::filesystem::path> chosen;
    std::ranges::copy_if(cocoa().files, std::back_inserter(chosen), isOffered);
    return chosen;
}

} // namespace tessivo
