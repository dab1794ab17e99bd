#include "app/model/AppModel.h"

#include "app/model/Background.h"
#include "app/readers/Readers.h"
#include "kit/report/ReportAssembler.h"
#include "kit/rules/Rules.h"
#include "kit/support/Json.h"

#include <system_error>

namespace tessivo {

namespace {

constexpr auto saveDelay = std::chrono::seconds(1);
const char* const sessionKey = "session";
const char* const notesKey = "notes";
const char* const keysKey = "hardwareKeys";
const char* const shelfKey = "sessionsSetAside";
const char* const unreadShelfKey = "sessionsSetAsideUnread";

/// What is stored, with whose it is; nothing if it isn't a session.
std::optional<ShelvedSession> storedSession(const Defaults& defaults) {
    auto bytes = defaults.data(sessionKey);
    if (!bytes) return std::nullopt;
    try {
        MachineInfo machine = SessionState::decode(*bytes).machine;
        return ShelvedSession{std::move(machine.serial), std::move(machine.modelID),
                              decodeHardwareKeys(defaults.data(keysKey).value_or("")), *std::move(bytes),
                              defaults.text(notesKey).value_or("")};
    } catch (const DecodingError&) {
        return std::nullopt;
    }
}

/// The error's own words, without the file names and codes that std::system_error puts around them.
std::string localizedDescription(const std::exception& error) {
    if (auto* system = dynamic_cast<const std::system_error*>(&error)) return system->code().message();
    return error.what();
}

} // namespace

AppModel::AppModel(Platform& platform, QObject* parent) : QObject(parent), m_platform(platform) {
    restoreOrBegin();
    m_historyStore.folder = supportFolder(platform) / "History";
    // The window doesn't wait for a folder of thousands of reports.
    m_listing = std::async(std::launch::async, [store = m_historyStore] { return store.list(); });
}

AppModel::~AppModel() = default;

bool AppModel::restore(const std::string& session, std::string notes, const MachineInfo& machine) {
    try {
        m_state = SessionState::decode(session);
    } catch (const DecodingError&) {
        // Stored data that isn't a session begins a new one; its bytes stay until the next save.
        return false;
    }
    m_state.machine = machine;
    m_notes = std::move(notes);
    return true;
}

void AppModel::restoreOrBegin() {
    Defaults& defaults = m_platform.defaults();
    const MachineInfo machine = readMachineInfo(m_platform.machineFacts(), m_platform.registry());
    m_keys = m_platform.machineFacts().hardwareKeys();
    const MacIdentity current{machine.serial, machine.modelID, m_keys};

    // A session never follows a disk or a backup to another Mac.
    std::optional<ShelvedSession> stored = storedSession(defaults);
    MacMatch match = MacMatch::different;
    if (stored) match = compare({stored->serial, stored->modelID, stored->keys}, current);
    if (m_keys) {
        if (auto bytes = defaults.data(shelfKey)) {
            if (auto shelf = SessionShelf::decode(*bytes))
                m_shelf = *std::move(shelf);
            else
                m_unreadShelf = std::move(bytes);
        }
        readOldShelf();
        // One that was set aside comes back where more speaks for it.
        const auto shelved = m_shelf.find(current);
        const bool comesBack = shelved && shelved->match > match &&
                               restore(m_shelf.sessions[shelved->index].session,
                                       m_shelf.sessions[shelved->index].notes, machine);
        if (comesBack) {
            m_keys = merged(m_shelf.sessions[shelved->index].keys, *m_keys);
            m_shelf.sessions.erase(m_shelf.sessions.begin() + std::ptrdiff_t(shelved->index));
        }
        if (stored && (comesBack || match == MacMatch::different)) m_shelf.put(*std::move(stored));
        if (comesBack) return;
    }
    if (match != MacMatch::different && restore(stored->session, stored->notes, machine)) {
        if (m_keys) m_keys = merged(stored->keys, *m_keys);
        return;
    }
    m_state = SessionState(machine, m_platform.scheduler().now());
}

void AppModel::readOldShelf() {
    auto old = m_platform.defaults().data(unreadShelfKey);
    auto shelf = old ? SessionShelf::decode(*old) : std::nullopt;
    if (!shelf) {
        if (!m_unreadShelf) m_unreadShelf = std::move(old);
        return;
    }
    // What another version couldn't read is older than what it set aside since.
    std::swap(*shelf, m_shelf);
    for (ShelvedSession& session : shelf->sessions)
        m_shelf.put(std::move(session));
    if (!m_unreadShelf) m_unreadShelf = "";
}

void AppModel::setState(SessionState state) {
    scheduleSave();
    if (state == m_state) return;
    m_state = std::move(state);
    m_results.reset();
    Q_EMIT stateChanged();
}

void AppModel::change(const std::function<void(SessionState&)>& action) {
    SessionState copy = m_state;
    action(copy);
    setState(std::move(copy));
}

void AppModel::setNotes(std::string notes) {
    scheduleSave();
    if (notes == m_notes) return;
    m_notes = std::move(notes);
    Q_EMIT notesChanged();
}

void AppModel::setPage(std::optional<Page> page) {
    if (page == m_page) return;
    m_page = page;
    Q_EMIT pageChanged();
}

void AppModel::setShowWriteUp(bool show) {
    if (show == m_showWriteUp) return;
    m_showWriteUp = show;
    Q_EMIT showWriteUpChanged();
}

void AppModel::setMessage(std::optional<std::string> message) {
    if (message == m_message) return;
    m_message = std::move(message);
    Q_EMIT messageChanged();
}

void AppModel::setReading(bool reading) {
    if (reading == m_reading) return;
    m_reading = reading;
    Q_EMIT readingChanged();
}

std::vector<Page> AppModel::testPages(std::optional<MacKind> kind) {
    std::vector<Page> pages;
    for (Page page : allCases<Page>()) {
        if (page == Page::overview || tests(page).empty()) continue;
        if (page == Page::ethernet && kind == MacKind::laptop) continue;
        pages.push_back(page);
    }
    return pages;
}

std::optional<TestStatus> AppModel::status(Page page) const {
    std::vector<TestStatus> statuses;
    for (TestID test : tests(page))
        statuses.push_back(result(test).status);
    if (statuses.empty()) return std::nullopt;
    for (TestStatus first :
         {TestStatus::problem, TestStatus::checkByHand, TestStatus::unfinished, TestStatus::notRun})
        if (std::ranges::count(statuses, first) > 0) return first;
    const bool left = std::ranges::all_of(statuses, [](auto s) { return s == TestStatus::notIncluded; });
    return left ? TestStatus::notIncluded : TestStatus::works;
}

const std::vector<TestResult>& AppModel::results() const {
    if (!m_results) m_results = Rules::results(m_state);
    return *m_results;
}

TestResult AppModel::result(TestID test) const {
    const auto found = std::ranges::find(results(), test, &TestResult::test);
    return found == results().end() ? Rules::result(test, m_state) : *found;
}

std::int64_t AppModel::doneCount() const {
    return std::ranges::count_if(results(), isDone, &TestResult::status);
}

std::filesystem::path AppModel::supportFolder(Platform& platform) {
    const auto folders = platform.folders().applicationSupport();
    if (folders.empty()) throw std::runtime_error("there is no application support folder");
    return folders.front();
}

std::string AppModel::appVersion() {
    return TESSIVO_VERSION;
}

void AppModel::readEnrollment() {
    if (m_reading) return;
    setReading(true);
    SystemTools& tools = m_platform.systemTools();
    m_enrollmentWork = Background::stoppable(
        this, [&tools](const StopToken& stop) { return readEnrollmentStatus(tools, stop); },
        [this](std::optional<EnrollmentStatus> status) {
            change([&](SessionState& state) {
                state.enrollment = std::move(status);
                state.enrollmentChecked = true;
            });
            setReading(false);
        });
}

void AppModel::readMachine() {
    change([this](SessionState& state) {
        state.machine = readMachineInfo(m_platform.machineFacts(), m_platform.registry());
    });
}

void AppModel::readBattery() {
    change([this](SessionState& state) {
        state.battery = tessivo::readBattery(m_platform.registry(), m_platform.powerSources());
    });
}

void AppModel::reset() {
    setState(SessionState(readMachineInfo(m_platform.machineFacts(), m_platform.registry()),
                          m_platform.scheduler().now()));
    // What was known of the Mac before, which may have been another of the same model, ends with its session.
    m_keys = m_platform.machineFacts().hardwareKeys();
    setNotes({});
    setPage(Page::overview);
    readBattery();
    readEnrollment();
}

ConditionReport AppModel::makeReport() const {
    return ReportAssembler::make(m_state, m_platform.scheduler().now(), appVersion(), m_notes);
}

void AppModel::setHandover(HandoverStep step, bool ticked) {
    change([&](SessionState& state) {
        HandoverChecklist checklist = state.handover.value_or(HandoverChecklist{});
        if (ticked)
            checklist.ticked.insert(step);
        else
            checklist.ticked.erase(step);
        if (checklist.ticked.empty())
            state.handover.reset();
        else
            state.handover = std::move(checklist);
    });
}

bool AppModel::saveToHistory(const ConditionReport& report) {
    try {
        m_historyStore.save(report);
    } catch (const std::exception& error) {
        setMessage("Couldn't save to History: " + localizedDescription(error));
        return false;
    }
    refreshHistory();
    setMessage("Saved to History.");
    return true;
}

void AppModel::addReportFiles(const std::vector<std::filesystem::path>& files) {
    std::size_t added = 0;
    for (const auto& file : files) {
        try {
            m_historyStore.importFile(file);
            ++added;
        } catch (const std::exception&) {
            // Counted below as a file that isn't a report.
        }
    }
    refreshHistory();
    if (added == files.size())
        setMessage("Added " + std::to_string(added) + " report" + (added == 1 ? "." : "s."));
    else
        setMessage("Added " + std::to_string(added) + " of " + std::to_string(files.size()) +
                   ". The others aren't Tessivo report files.");
}

void AppModel::deleteFromHistory(const Uuid& id) {
    try {
        m_historyStore.remove(id);
    } catch (const std::exception&) {
        // A report listed through a file of another name stays; the fresh listing shows it.
    }
    refreshHistory();
}

void AppModel::refreshHistory() {
    auto listed = m_historyStore.list();
    if (listed == history()) return;
    m_history = std::move(listed);
    Q_EMIT historyChanged();
}

const std::vector<ConditionReport>& AppModel::history() const {
    if (m_listing.valid()) m_history = m_listing.get();
    return m_history;
}

void AppModel::scheduleSave() {
    m_saveTask = m_platform.scheduler().after(saveDelay, [this] { persist(); });
}

void AppModel::persist() {
    std::string session;
    try {
        session = m_state.encode();
    } catch (const std::exception&) {
        return;
    }
    using Kind = DefaultsEntry::Kind;
    std::vector<DefaultsEntry> entries{{sessionKey, Kind::data, std::move(session)},
                                       {notesKey, Kind::text, m_notes}};
    if (m_keys) {
        entries.push_back({keysKey, Kind::data, encode(*m_keys)});
        entries.push_back({shelfKey, Kind::data, m_shelf.encode()});
        if (m_unreadShelf) entries.push_back({unreadShelfKey, Kind::data, *m_unreadShelf});
    }
    const std::error_code error = m_platform.defaults().set(entries);
    tellWhetherStored(error ? std::optional(saveFault(error)) : std::nullopt);
}

void AppModel::tellWhetherStored(std::optional<SaveFault> fault) {
    if (fault == m_saveFault) return;
    const auto words = [](SaveFault why) {
        return std::string("Couldn't save your answers: ") + cause(why) +
               ". Tessivo tries again at the next change.";
    };
    // What a person just asked for and didn't get comes first; this is told at the next save.
    if (fault && message() && message()->starts_with("Couldn't save to History")) return;
    if (fault)
        setMessage(words(*fault));
    else if (message() == words(*m_saveFault))
        setMessage(std::nullopt);
    m_saveFault = fault;
}

} // namespace tessivo
