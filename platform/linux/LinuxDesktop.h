#pragma once

#include "platform/Desktop.h"

namespace tessivo {

/// Links and pasteboard by the desktop's own handlers. A link to a pane of a Mac's settings opens the pane of
/// this desktop that comes closest.
class LinuxDesktop final : public Desktop {
public:
    void openURL(const std::string& url) override;
    bool canOpenURL(const std::string& url) const override;
    void setPasteboardText(const std::string& text) override;
    std::optional<Paper> paper() const override;
};

/// There is no framework that replaces the program here: the package does. A check opens the page of
/// releases.
class LinuxUpdateFramework final : public UpdateFramework {
public:
    explicit LinuxUpdateFramework(Desktop& desktop);

    std::optional<std::string> feedURL() const override;
    void checkForUpdates() override;

private:
    Desktop& m_desktop;
};

/// No language model of the computer's own: never available.
class LinuxWordingService final : public WordingService {
public:
    WordingAvailability availability() const override;
    /// A model whose every rewording throws.
    std::shared_ptr<WordingModel> makeModel() override;
};

} // namespace tessivo
