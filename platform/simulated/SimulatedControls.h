#pragma once

#include "kit/hardware/RegistryNames.h"
#include "platform/simulated/SimulatedPlatform.h"

namespace tessivo {

/// What a person could do to a simulated Mac: plug, break, speak, deny. For tests and the demo's panel;
/// the application never sees it. Every change is found by the application's own polls, signalled by
/// nothing. Main thread; the platform outlives it.
class SimulatedControls final {
public:
    /// How a Mac shows headphones: the built-in output changes its data source, or a further built-in
    /// output, "External Headphones", stands in the list with its jack connected.
    enum class JackForm { dataSource, separateDevice };

    static constexpr const char* enrollmentTool = SystemTool::enrollment;

    explicit SimulatedControls(SimulatedPlatform& platform) : m_platform(platform) {}

    // Readings
    void breakReading(SimulatedReading reading) { mac().broken.insert(reading); }
    void mendReading(SimulatedReading reading) { mac().broken.erase(reading); }
    /// From the next launch on; absent, as at the start, the serial number alone tells this Mac from others.
    void setHardwareKeys(std::optional<HardwareKeys> keys) { mac().hardwareKeys = std::move(keys); }
    /// The raw facts themselves; what is changed here is read from now on.
    MachineFile& facts() { return mac().facts; }
    /// The entries of a class of the registry, which can be searched from now on.
    std::vector<RegistryEntry>& entries(const std::string& className);

    // USB
    /// A device by its raw registry properties.
    void plugUSB(PropertyMap properties);
    void plugUSB(const std::string& name, std::int64_t vendorID, std::int64_t productID,
                 std::uint32_t locationID, std::int64_t deviceClass = 0, std::int64_t speed = 3);
    /// Takes away the device and, if it is a hub, whatever hangs behind it. False if there is none.
    bool unplugUSB(std::uint32_t locationID);

    // Ethernet; false if no interface has the name
    bool raiseLink(const std::string& bsdName, std::int64_t bitsPerSecond) {
        return setLink(bsdName, linkUp, bitsPerSecond);
    }
    bool dropLink(const std::string& bsdName) { return setLink(bsdName, linkDown, 0); }

    // Battery: a raw key of the registry's entry or of the first power source; an empty value removes it
    void setBattery(const std::string& key, Property value);
    void setPowerSource(const std::string& key, Property value);
    void removeBattery();

    // Enrollment tool
    void setEnrolled(bool enrolled);
    void setEnrollmentAnswer(std::string output, int exitStatus = 0) {
        tools().answer(enrollmentTool, {exitStatus, std::move(output)});
    }
    void removeEnrollmentTool() { tools().remove(enrollmentTool); }
    void hangEnrollmentTool() { tools().hang(enrollmentTool); }
    /// The tool prints far more than is kept of it, then ends well.
    void floodEnrollmentTool() { setEnrollmentAnswer(std::string(2 * SystemTools::largestOutput, 'y')); }
    std::size_t enrollmentRuns() const { return tools().runs().size(); }

    // Sound
    void insertHeadphones(JackForm form);
    void pullHeadphones();
    void failEngine(bool fails) { mac().engineFails = fails; }
    const std::vector<ScheduledTone>& tones() const { return mac().tones; }

    // Microphones and cameras
    void setAccess(MediaType type, AuthorizationStatus status) { capture().setAccess(type, status); }
    AuthorizationStatus access(MediaType type) const { return capture().authorizationStatus(type); }
    /// While held, a question for access waits for `setAccess`; else it is answered with yes.
    void holdPrompts(bool held) { capture().holdPrompts(held); }
    void addDevice(MediaType type, CaptureDevice device);
    /// A session on the device gets nothing more.
    void removeDevice(MediaType type, const std::string& deviceID);
    /// Makes the list fail; nothing: it is read again.
    void failList(MediaType type, std::optional<CaptureList::Fault> fault);
    /// Whether the device can be opened at all.
    void setOpens(MediaType type, const std::string& deviceID, bool opens);
    /// How long the device takes to open; nothing: it never does.
    void setOpening(const std::string& deviceID, std::optional<std::chrono::milliseconds> delay) {
        capture().behave(deviceID, &CaptureBehaviour::opening, delay);
    }
    /// What a session on the device finds when it opens; nothing: it opens.
    void failOpening(const std::string& deviceID, std::optional<OpenFault> fault) {
        capture().behave(deviceID, &CaptureBehaviour::fault, fault);
    }
    /// A session is open or opening on the device.
    bool isOpen(const std::string& deviceID) const { return capture().isOpen(deviceID); }
    /// One buffer of 20 ms at the level in dB. This and the next two return when the session's thread has
    /// delivered, with false if no session is open on the device.
    bool speak(const std::string& microphoneID, double level) {
        return feed(microphoneID, testSamples(level, 960), 2);
    }
    bool feed(const std::string& microphoneID, std::vector<float> samples, int channelCount);
    bool sendFrames(const std::string& cameraID, std::size_t count);
    /// Buffers at the level without end, as long as a session is open; nothing: no more.
    void keepSpeaking(const std::string& microphoneID, std::optional<double> level) {
        capture().behave(microphoneID, &CaptureBehaviour::level, level);
    }
    void keepSending(const std::string& cameraID, bool sends) {
        capture().behave(cameraID, &CaptureBehaviour::sendsFrames, sends);
    }

    // Trackpad; both do nothing while nobody listens
    bool trackpadIsWatched() const { return bool(mac().fingers.touches); }
    /// Aimed: the touches are meant for the program, wherever the pointer is; at first they aren't.
    void setTouchesAimed(bool aimed) { mac().touchesAreAimed = aimed; }
    void touch(const std::vector<FingerPosition>& fingers);
    void gesture(Gesture gesture);
    /// Where the surface is; see `FingerTouches::place`.
    QRect trackpadPlace() const { return mac().fingerPlace; }

    // Storage
    void failDefaults(bool fails) { mac().defaultsFail = fails; }
    std::size_t defaultsWrites() const { return mac().defaultsWrites; }
    /// Takes the right to write from the History folder, or gives it back. Without effect for root.
    void setHistoryReadOnly(bool readOnly);

    // Desktop, updates, wording
    /// Whether there are panes of settings that a link can open.
    void setHasSettings(bool has) { mac().hasSettings = has; }
    const std::vector<std::string>& openedURLs() const { return mac().openedURLs; }
    const std::optional<std::string>& pasteboardText() const { return mac().pasteboard; }
    void setPaper(std::optional<Paper> paper) { mac().paper = paper; }
    /// What the person chooses in the system's own panel; nothing, as at the start: it has none.
    void chooseFiles(std::optional<std::vector<std::filesystem::path>> files) {
        mac().chosenFiles = std::move(files);
    }
    /// The person's; at first "en" and no region.
    void setLanguage(std::string code) { mac().language = std::move(code); }
    void setRegion(std::string identifier) { mac().region = std::move(identifier); }
    void setFeedURL(std::optional<std::string> url) { mac().feedURL = std::move(url); }
    std::size_t updateChecks() const { return mac().updateChecks; }
    SimulatedWording& wording() { return m_platform.m_wordingService; }

private:
    static constexpr std::int64_t linkUp = 3;   // valid and active
    static constexpr std::int64_t linkDown = 1; // valid

    SimulatedMac& mac() const { return m_platform.m_mac; }
    SimulatedCapture& capture() const { return m_platform.m_captureDevices; }
    SimulatedTools& tools() const { return m_platform.m_systemTools; }
    bool setLink(const std::string& bsdName, std::int64_t status, std::int64_t bitsPerSecond);

    SimulatedPlatform& m_platform;
    std::function<void()> m_pullHeadphones;
};

} // namespace tessivo
