#include "tests/macos/system/StandIn.h"

#include <QString>
#include <cstdio>
#include <cstdlib>

namespace tessivo {

StandIn& StandIn::shared() {
    static StandIn system;
    return system;
}

void StandIn::fail(const std::string& line) {
    std::fprintf(stderr, "stand-in system: %s\n", line.c_str());
    std::fflush(stderr);
    std::abort();
}

void StandIn::reset() {
    *this = StandIn();
}

void StandIn::load(const MachineFile& machine) {
    const OperatingSystem system = machine.operatingSystem.value_or(OperatingSystem());
    const std::uint64_t memory = machine.physicalMemory.value_or(0);
    for (const auto& [name, value] : machine.sysctl.value_or(std::map<std::string, std::string>()))
        sysctl[name] = value + '\0';
    sysctl["kern.osproductversion"] = std::to_string(system.major) + "." + std::to_string(system.minor) +
                                      (system.patch ? "." + std::to_string(system.patch) : "") + '\0';
    sysctl["hw.memsize"] = std::string(reinterpret_cast<const char*>(&memory), sizeof memory);
    if (machine.startupVolumeTotalCapacity) capacity = keep(*machine.startupVolumeTotalCapacity);
    const std::function<std::shared_ptr<Service>(const RegistryEntry&)> service =
        [&](const RegistryEntry& entry) {
            auto out = std::make_shared<Service>();
            out->className = entry.className;
            if (entry.properties) out->properties = keep(*entry.properties);
            if (const auto parent = entry.parent()) out->parent = service(*parent);
            return out;
        };
    if (machine.registry)
        for (const auto& [name, entries] : *machine.registry)
            for (std::vector<std::shared_ptr<Service>>& list = services[name];
                 const RegistryEntry& entry : entries)
                list.push_back(service(entry));
    if (machine.powerSources) {
        powerSources.emplace();
        for (const Property& source : *machine.powerSources)
            powerSources->push_back(keep(source));
    }
    findsOthers = false;
    tools = machine.tools.value_or(std::map<std::string, MachineFile::Tool>());
    audio = machine.audio.value_or(MachineFile::Audio());
}

std::string StandIn::held() const {
    std::string out;
    for (const auto& object : m_objects)
        if (object->owned > 0)
            out += "still holds " + std::to_string(object->owned) + " of " + object->made + "\n";
    for (const Handle& handle : m_handles)
        if (!handle.released)
            out += "still holds " +
                   (handle.service ? "the entry " + handle.service->className
                                   : "an iterator over " + handle.iterator.className) +
                   "\n";
    for (const auto& unit : units)
        out += "still holds an output unit for device " + std::to_string(unit->device) + "\n";
    return out;
}

bool StandIn::enters(const char* call) {
    const int number = m_calls++;
    if (const auto action = beforeCall) action(number, call);
    return number != m_failing;
}

StandIn::Object* StandIn::make(Object::Kind kind, std::string made) {
    auto object = std::make_unique<Object>();
    object->kind = kind;
    object->made = std::move(made);
    m_known.insert(object.get());
    m_objects.push_back(std::move(object));
    return m_objects.back().get();
}

StandIn::Object* StandIn::keep(const Property& value) {
    using Kind = Object::Kind;
    Object* out = nullptr;
    if (const auto* flag = std::get_if<bool>(&value.value)) {
        out = make(Kind::boolean, "a boolean");
        out->whole = *flag;
    } else if (const auto* whole = std::get_if<std::int64_t>(&value.value)) {
        out = make(Kind::number, "the number " + std::to_string(*whole));
        out->whole = *whole;
    } else if (const auto* real = std::get_if<double>(&value.value)) {
        out = make(Kind::number, "the number " + std::to_string(*real));
        out->real = *real;
        out->isReal = true;
    } else if (const auto* text = std::get_if<std::string>(&value.value)) {
        out = make(Kind::string, "the text \"" + *text + "\"");
        out->text = QString::fromStdString(*text).toStdU16String();
    } else if (const auto* list = std::get_if<PropertyList>(&value.value)) {
        out = make(Kind::array, "a list");
        for (const Property& element : *list)
            out->elements.push_back(keep(element));
    } else if (const auto* map = std::get_if<PropertyMap>(&value.value)) {
        out = make(Kind::dictionary, "a dictionary");
        for (const auto& [key, element] : *map)
            out->elements.insert(out->elements.end(), {keep(key), keep(element)});
    } else {
        out = make(Kind::date, "a date");
    }
    ++out->kept;
    return out;
}

StandIn::Object* StandIn::copy(const Object& object, std::string made) {
    const auto clone = [this](const Object& original, std::string name) {
        Object* out = make(original.kind, {});
        *out = original;
        out->made = std::move(name);
        out->owned = out->kept = 0;
        return out;
    };
    Object* whole = clone(object, std::move(made));
    // No recursion: a test's objects lie ten thousand deep.
    std::vector<Object*> open = {whole};
    while (!open.empty()) {
        Object* holder = open.back();
        open.pop_back();
        for (Object*& element : holder->elements) {
            element = clone(*element, element->made + " in " + whole->made);
            element->kept = 1;
            open.push_back(element);
        }
    }
    return whole;
}

void StandIn::disown(Object* object) {
    if (--object->owned + object->kept > 0) return;
    std::vector<Object*> dead = {object};
    while (!dead.empty()) {
        const auto elements = dead.back()->elements;
        dead.pop_back();
        for (Object* element : elements)
            if (--element->kept + element->owned <= 0) dead.push_back(element);
    }
}

StandIn::Object* StandIn::constant(const std::string& text) {
    Object*& object = m_constants[text];
    if (!object) {
        object = keep(text);
        object->isConstant = true;
    }
    return object;
}

StandIn::Object* StandIn::alive(const void* object, const char* call) {
    if (!object) fail(std::string(call) + " was given null");
    if (!m_known.contains(object)) fail(std::string(call) + " was given what is no object");
    auto* known = const_cast<Object*>(static_cast<const Object*>(object));
    if (known->owned + known->kept <= 0)
        fail(std::string(call) + " was given " + known->made + " after its release");
    return known;
}

void StandIn::servicesChanged() {
    for (Handle& handle : m_handles)
        handle.iterator.valid = false;
}

std::uint32_t StandIn::handle(std::shared_ptr<Service> service) {
    m_handles.push_back({.service = std::move(service), .iterator = {}});
    return std::uint32_t(m_handles.size());
}

std::uint32_t StandIn::iterator(std::string className) {
    m_handles.push_back(
        {.service = nullptr, .iterator = {.className = className, .list = services[className]}});
    return std::uint32_t(m_handles.size());
}

StandIn::Handle& StandIn::openHandle(std::uint32_t handle, const char* call) {
    if (handle == 0 || handle > m_handles.size()) fail(std::string(call) + " was given no handle");
    Handle& found = m_handles[handle - 1];
    if (found.released)
        fail(std::string(call) + " was given a released handle of " +
             (found.service ? found.service->className : "an iterator over " + found.iterator.className));
    return found;
}

std::shared_ptr<StandIn::Service> StandIn::serviceOf(std::uint32_t handle, const char* call) {
    const auto service = openHandle(handle, call).service;
    if (!service) fail(std::string(call) + " was given an iterator");
    return service;
}

std::uint32_t StandIn::next(std::uint32_t handle) {
    Iterator& iterator = openHandle(handle, "IOIteratorNext").iterator;
    if (!iterator.valid || iterator.at == iterator.list.size()) return 0;
    const auto service = iterator.list[iterator.at++];
    return this->handle(service);
}

bool StandIn::isValid(std::uint32_t handle) {
    return openHandle(handle, "IOIteratorIsValid").iterator.valid;
}

void StandIn::rewind(std::uint32_t handle) {
    Iterator& iterator = openHandle(handle, "IOIteratorReset").iterator;
    iterator = {.className = iterator.className, .list = services[iterator.className]};
}

void StandIn::releaseHandle(std::uint32_t handle) {
    openHandle(handle, "IOObjectRelease").released = true;
}

std::pair<std::vector<float>, std::vector<float>> StandIn::render(std::uint32_t frames) {
    std::pair<std::vector<float>, std::vector<float>> out;
    for (const auto& unit : units) {
        if (!unit->isRunning) continue;
        const std::size_t start = out.first.size();
        out.first.resize(start + frames);
        out.second.resize(start + frames);
        if (!unit->render(out.first.data() + start, out.second.data() + start, frames))
            fail("a render callback refused its buffers");
    }
    return out;
}

} // namespace tessivo
