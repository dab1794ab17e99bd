#pragma once

#include "platform/Desktop.h"

namespace tessivo {

/// Links and pasteboard by the desktop's own handlers, as far as they are alike on every system. Main thread.
class QtDesktop : public Desktop {
public:
    void openURL(const std::string& url) override;
    bool canOpenURL(const std::string& url) const override;
    void setPasteboardText(const std::string& text) override;
};

} // namespace tessivo
