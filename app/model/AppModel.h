#pragma once

#include "app/model/Page.h"
#include "app/model/SaveFault.h"
#include "kit/report/HistoryStore.h"
#include "kit/session/SessionShelf.h"
#include "kit/session/SessionState.h"
#include "platform/Platform.h"

#include <QObject>
#include <future>

namespace tessivo {

namespace Background {
class Stoppable;
}

/// The one observable object of the application: the session, the notes, the selected page and the small
/// state that pages share. Its signals are sent only on a change; every write to the session or the notes,
/// changed or not, puts off the save to one second after it. Main thread only.
class AppModel final : public QObject {
    Q_OBJECT

public:
    /// Restores the stored session if it belongs to this Mac, else one that was set aside for it, else begins
    /// a new one. Throws std::runtime_error where there is no application support folder. The platform
    /// outlives the model.
    explicit AppModel(Platform& platform, QObject* parent = nullptr);
    ~AppModel() override;

    Platform& platform() const { return m_platform; }

    const SessionState& state() const { return m_state; }
    const std::string& notes() const { return m_notes; }
    std::optional<Page> page() const { return m_page; }
    bool showWriteUp() const { return m_showWriteUp; }
    /// An enrollment reading is under way.
    bool reading() const { return m_reading; }
    /// What lies in History. The first asker after the start waits until its folder has been read.
    const std::vector<ConditionReport>& history() const;
    const std::optional<std::string>& message() const { return m_message; }
    const HistoryStore& historyStore() const { return m_historyStore; }

    void setState(SessionState state);
    /// A write to any field of the session: the action changes a copy, which becomes the session.
    void change(const std::function<void(SessionState&)>& action);
    void setNotes(std::string notes);
    void setPage(std::optional<Page> page);
    void setShowWriteUp(bool show);
    void setMessage(std::optional<std::string> message);

    /// The pages of the "Tests" section for a kind of Mac.
    static std::vector<Page> testPages(std::optional<MacKind> kind);
    /// The badge of a page; absent for a page without tests.
    std::optional<TestStatus> status(Page page) const;
    /// What the rules find in the session as it is: one result for each of its tests, in their order. The
    /// rules are asked once after a change, by whoever comes first; the next change drops what they said.
    const std::vector<TestResult>& results() const;
    /// The result of any test, also of one that this kind of Mac goes without.
    TestResult result(TestID test) const;
    std::int64_t doneCount() const;
    /// Where the platform keeps this application's files. Throws std::runtime_error where there is no such
    /// place.
    static std::filesystem::path supportFolder(Platform& platform);
    /// The application's version, as reports carry it.
    static std::string appVersion();

    /// Reads device management away from the main thread; nothing while a reading runs already.
    void readEnrollment();
    void readMachine();
    void readBattery();
    /// "Start Over": a new session, empty notes, the first page. History stays.
    void reset();

    ConditionReport makeReport() const;
    void setHandover(HandoverStep step, bool ticked);
    /// True on success; either way `message` tells.
    bool saveToHistory(const ConditionReport& report);
    void addReportFiles(const std::vector<std::filesystem::path>& files);
    /// Drops any error in silence, then lists anew.
    void deleteFromHistory(const Uuid& id);
    void refreshHistory();

    /// Stores the session and the notes at once, and with them whose they are and what was set aside. Where
    /// that fails `message` tells why, once until it succeeds or fails for another reason.
    void persist();

Q_SIGNALS:
    void stateChanged();
    void notesChanged();
    void pageChanged();
    void showWriteUpChanged();
    void readingChanged();
    void historyChanged();
    void messageChanged();

private:
    void restoreOrBegin();
    /// Gives the session back with the notes, if it can be read.
    bool restore(const std::string& session, std::string notes, const MachineInfo& machine);
    /// Takes in what stood aside unread, if it can be read now.
    void readOldShelf();
    void scheduleSave();
    void setReading(bool reading);
    void tellWhetherStored(std::optional<SaveFault> fault);

    Platform& m_platform;
    SessionState m_state;
    mutable std::optional<std::vector<TestResult>>
        m_results; ///< of this very state, once they were asked for
    std::string m_notes;
    std::optional<HardwareKeys> m_keys;       ///< stored with the session; absent where the platform has none
    SessionShelf m_shelf;                     ///< stored with it too
    std::optional<std::string> m_unreadShelf; ///< what stood in its place and is kept beside it
    std::optional<Page> m_page = Page::overview;
    bool m_showWriteUp = false;
    bool m_reading = false;
    mutable std::vector<ConditionReport> m_history;
    mutable std::future<std::vector<ConditionReport>> m_listing; ///< until the first asker
    std::optional<std::string> m_message;
    HistoryStore m_historyStore;
    std::unique_ptr<Scheduled> m_saveTask;
    std::optional<SaveFault> m_saveFault; ///< why the last save failed, if it did
    std::unique_ptr<Background::Stoppable> m_enrollmentWork;
};

} // namespace tessivo
