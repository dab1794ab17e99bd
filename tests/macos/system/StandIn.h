#pragma once

#include "platform/simulated/MachineFile.h"

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace tessivo {

/// A small Mac behind the system's C interfaces. It counts references and calls: what the program releases
/// twice, uses after its release or releases without owning it ends the test with a line that names the
/// object; `held` lists what was never released. It can fail any call and change the machine between two
/// calls. One thread.
class StandIn final {
public:
    /// One object of the system. `owned` counts the program's references, `kept` those of the system itself.
    struct Object {
        enum class Kind { null, string, number, boolean, data, date, array, dictionary, url, locale, bundle };

        Kind kind = Kind::null;
        std::string made; ///< by which call, for messages
        long owned = 0;
        long kept = 0;
        bool isConstant = false;
        std::u16string text;
        std::string bytes;
        std::int64_t whole = 0;
        double real = 0;
        bool isReal = false;
        bool isWide = false;           ///< a number beyond 64 signed bits
        std::vector<Object*> elements; ///< of a dictionary: key, value, key, value ...
    };

    /// An entry of the registry. `gone`: its properties can't be read any more.
    struct Service {
        std::string className;
        Object* properties = nullptr; ///< null: can't be read
        std::shared_ptr<Service> parent;
        bool gone = false;
    };

    struct Unit {
        virtual ~Unit() = default;

        std::uint32_t subtype = 0;
        std::uint32_t device = 0;
        double clientRate = 0;
        bool isInitialized = false;
        bool isRunning = false;
        std::function<bool(float*, float*, std::uint32_t)> render; ///< false: the callback refused
    };

    static StandIn& shared();

    /// An empty Mac with no faults; all objects of the one before it are forgotten.
    void reset();
    void load(const MachineFile& machine);

    // What the program still holds: a line for each object and handle; empty if nothing.
    std::string held() const;

    /// Calls since `reset`; `failCall` makes the one of that number fail, -1 none.
    int calls() const { return m_calls; }
    void failCall(int number) { m_failing = number; }
    /// Called before each call with its number and name.
    std::function<void(int, const std::string&)> beforeCall;

    // The machine. A change of services makes iterators under way invalid.
    std::map<std::string, std::string> sysctl;
    std::map<std::string, std::vector<std::shared_ptr<Service>>> services;
    bool findsOthers = true; ///< a class without services is found empty; else it can't be searched
    void servicesChanged();
    Object* capacity = nullptr; ///< of "/"; null: the volume doesn't tell
    std::optional<std::vector<Object*>> powerSources;
    MachineFile::Audio audio;
    std::vector<std::unique_ptr<Unit>> units;
    std::vector<std::string> languages = {"en"};    ///< the person's, the dearest first
    std::optional<std::string> locale;              ///< the person's region, as an identifier
    std::optional<std::pair<double, double>> paper; ///< of a new page: width and height in points
    std::map<std::string, MachineFile::Tool> tools; ///< by path; other paths are this computer's
    int fullSyncs = 0;                              ///< so often the drive was told to write
    int fullSyncFault = 0;                          ///< `errno` of a volume whose drive can't be told
    std::map<std::string, std::string> resources;   ///< of the program's bundle: name and path
    std::map<std::pair<std::string, std::string>, Object*> preferences; ///< by application and key
    std::map<std::pair<std::string, std::string>, Object*> storedPreferences;

    /// Runs the callbacks of all units that run: what they gave, left and right, one after another.
    std::pair<std::vector<float>, std::vector<float>> render(std::uint32_t frames);

    // Objects for a test's machine, kept by the system.
    Object* keep(const Property& value);
    /// A copy that belongs to nobody yet, with copies of all that it holds.
    Object* copy(const Object& object, std::string made);
    Object* make(Object::Kind kind, std::string made);

    // Used by the calls.
    bool enters(const char* call); ///< false if this call is to fail
    Object* alive(const void* object, const char* call);
    Object* own(Object* object) { return ++object->owned, object; }
    /// One reference less of the program's; with the last one go those of what the object holds.
    void disown(Object* object);
    std::uint32_t handle(std::shared_ptr<Service> service);
    std::uint32_t iterator(std::string className);
    std::shared_ptr<Service> serviceOf(std::uint32_t handle, const char* call);
    std::uint32_t next(std::uint32_t handle);
    bool isValid(std::uint32_t handle);
    void rewind(std::uint32_t handle);
    void releaseHandle(std::uint32_t handle);
    Object* constant(const std::string& text);
    [[noreturn]] static void fail(const std::string& line);

private:
    struct Iterator {
        std::string className;
        std::vector<std::shared_ptr<Service>> list;
        std::size_t at = 0;
        bool valid = true;
    };
    struct Handle {
        std::shared_ptr<Service> service; ///< null for an iterator
        Iterator iterator;
        bool released = false;
    };
    Handle& openHandle(std::uint32_t handle, const char* call);

    std::vector<std::unique_ptr<Object>> m_objects;
    std::set<const void*> m_known;
    std::vector<Handle> m_handles;
    std::map<std::string, Object*> m_constants;
    int m_calls = 0;
    int m_failing = -1;
};

} // namespace tessivo
