#pragma once

#include "kit/support/Date.h"

#include <functional>
#include <optional>
#include <string>
#include <vector>

/// The language of the listing description: "en" or "es". Any thread.
namespace tessivo::Lang {

/// The language for a list of preferred ones: Spanish if the first begins with "es", else English.
std::string fromPreferred(const std::vector<std::string>& preferred);

/// The preferred languages that an environment tells, the first before all others: the list in LANGUAGE,
/// then the locale of LC_ALL, LC_MESSAGES or LANG. `variable` gives a variable's value, or null.
std::vector<std::string> preferred(const std::function<const char*(const char*)>& variable);

/// The application's language: English until it is set, once, before the first text.
const std::string& system();
void setSystem(std::string code);

/// The running task's own language, if it has one. It belongs to the thread.
std::optional<std::string> override();

/// The override, else the system's language.
std::string current();
bool isSpanish();

/// Puts an override in force, or none, until it goes; then the thread's own is back.
class Scope final {
public:
    explicit Scope(std::optional<std::string> code);
    ~Scope();
    Scope(const Scope&) = delete;
    Scope& operator=(const Scope&) = delete;

private:
    std::optional<std::string> m_before;
};
/// Runs the operation with the override set, whatever it returns or throws.
template <class Operation>
auto with(std::string code, Operation&& operation) {
    const Scope scope(std::move(code));
    return operation();
}

/// The operation as a task that carries the starter's override to whatever thread runs it.
std::function<void()> carrying(std::function<void()> operation);

/// The long date without a time in the language in force: "March 5, 2026", "5 de marzo de 2026".
std::string dateText(Date date);

} // namespace tessivo::Lang
