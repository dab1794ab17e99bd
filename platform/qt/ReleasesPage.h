#pragma once

#include "platform/Desktop.h"

namespace tessivo {

/// Where no framework replaces the program, since a package or a person does: a check opens the page of
/// releases.
class ReleasesPage final : public UpdateFramework {
public:
    explicit ReleasesPage(Desktop& desktop) : m_desktop(desktop) {}

    std::optional<std::string> feedURL() const override;
    void checkForUpdates() override;

private:
    Desktop& m_desktop;
};

} // namespace tessivo
