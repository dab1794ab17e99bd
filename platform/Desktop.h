#pragma once

#include "kit/listing/WordingPolish.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QScreen;
class QWindow;

namespace tessivo {

/// What a report is set on unless a person chooses otherwise.
enum class Paper { a4, letter };

/// A panel that asks for files to open, several if the person likes.
struct OpenPanel {
    std::string message;
    std::string folder;                  ///< where it begins
    std::vector<std::string> extensions; ///< of the files it offers, without their points
};

/// The desktop around the window. Main thread.
class Desktop {
public:
    virtual ~Desktop() = default;

    /// Opens a link in the default browser or the settings.
    virtual void openURL(const std::string& url) = 0;
    /// False where a link is known to lead nowhere: to a pane of settings that this desktop hasn't got.
    virtual bool canOpenURL(const std::string& url) const = 0;
    /// Whether windows bring the program's icon; elsewhere it stands in the program's bundle.
    virtual bool windowsHaveIcons() const { return true; }
    /// Clears the general pasteboard and puts plain text on it.
    virtual void setPasteboardText(const std::string& text) = 0;
    /// The system's paper setting; nothing where it has none.
    virtual std::optional<Paper> paper() const = 0;
    /// Shows the window over the screen's whole frame, in front of all else.
    virtual void coverScreen(QWindow& window, QScreen& screen) = 0;
    /// Asks with the system's own panel; no files where the person cancelled. Nothing where the system has
    /// no panel of its own, and the program shows one.
    virtual std::optional<std::vector<std::filesystem::path>> openFiles(const OpenPanel& panel) = 0;
};

/// The update framework, as far as the wrapper needs it. Main thread.
class UpdateFramework {
public:
    virtual ~UpdateFramework() = default;

    virtual std::optional<std::string> feedURL() const = 0;
    /// Hands over to the framework, which shows its own windows.
    virtual void checkForUpdates() = 0;
};

/// The computer's own language model, where it has one.
class WordingService {
public:
    virtual ~WordingService() = default;

    virtual WordingAvailability availability() const = 0;
    /// A fresh model for one rewording; its call runs off the main thread. Shared, since a rewording can
    /// outlive the sheet that asked for it.
    virtual std::shared_ptr<WordingModel> makeModel() = 0;
};

} // namespace tessivo
