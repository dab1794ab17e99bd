#pragma once

#include "platform/Desktop.h"
#include "platform/PersonalSettings.h"
#include "platform/Storage.h"
#include "platform/simulated/SimulatedMac.h"

namespace tessivo {

/// Records what the desktop was asked for. Main thread.
class SimulatedDesktop final : public Desktop {
public:
    explicit SimulatedDesktop(SimulatedMac& mac) : m_mac(mac) {}

    void openURL(const std::string& url) override { m_mac.openedURLs.push_back(url); }
    bool canOpenURL(const std::string& url) const override;
    void setPasteboardText(const std::string& text) override { m_mac.pasteboard = text; }
    std::optional<Paper> paper() const override { return m_mac.paper; }
    void coverScreen(QWindow& window, QScreen& screen) override;
    std::optional<std::vector<std::filesystem::path>> openFiles(const OpenPanel&) override {
        return m_mac.chosenFiles;
    }

private:
    SimulatedMac& m_mac;
};

class SimulatedPerson final : public PersonalSettings {
public:
    explicit SimulatedPerson(const SimulatedMac& mac) : m_mac(mac) {}

    std::string language() const override { return m_mac.language; }
    std::string region() const override { return m_mac.region; }
    std::optional<std::filesystem::path> resources() const override { return std::nullopt; }

private:
    const SimulatedMac& m_mac;
};

class SimulatedUpdates final : public UpdateFramework {
public:
    explicit SimulatedUpdates(SimulatedMac& mac) : m_mac(mac) {}

    std::optional<std::string> feedURL() const override { return m_mac.feedURL; }
    void checkForUpdates() override { ++m_mac.updateChecks; }

private:
    SimulatedMac& m_mac;
};

class SimulatedFingers final : public FingerTouches {
public:
    explicit SimulatedFingers(SimulatedMac& mac) : m_mac(mac) {}

    bool tellsOfEveryWindow() const override { return !m_mac.touchesAreAimed; }
    void start(QWindow*, Handlers handlers) override { m_mac.fingers = std::move(handlers); }
    void place(const QRect& visible) override { m_mac.fingerPlace = visible; }
    void stop() override { m_mac.fingers = {}; }

private:
    SimulatedMac& m_mac;
};

} // namespace tessivo
