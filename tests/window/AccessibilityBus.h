#pragma once

#include "tests/TemporaryFolder.h"

#include <QDBusConnection>
#include <QProcess>
#include <optional>
#include <vector>

namespace tessivo::windowtest {

/// One thing of a program as a screen reader meets it. A node whose object went away has no name and no role.
class AccessibleNode final {
public:
    AccessibleNode(QDBusConnection bus, QString program, QString path)
        : m_bus(std::move(bus)), m_program(std::move(program)), m_path(std::move(path)) {}

    QString name() const;
    /// The role's English name: "push button", "list item".
    QString role() const;
    /// What it holds where it can be typed into or counts: its text, else its value.
    QString content() const;
    bool isShown() const;
    bool isEnabled() const;
    bool isSelected() const;
    bool isChecked() const;
    std::vector<AccessibleNode> children() const;
    /// Does what a screen reader's person does to it; false if it has no such action.
    bool press() const;
    bool type(const QString& text) const;

    /// The first shown one of this role at or below it whose name begins so.
    std::optional<AccessibleNode> find(const QString& role, const QString& name) const;

private:
    QVariant call(const char* interface, const char* method, const QVariantList& arguments = {}) const;
    QVariant property(const char* interface, const char* name) const;
    bool hasState(int state) const;

    QDBusConnection m_bus;
    QString m_program; // its name on the bus
    QString m_path;
};

/// A session bus and the accessibility bus on it, of their own. Throws std::runtime_error if they don't come
/// up.
class AccessibilityBus final {
public:
    AccessibilityBus();
    ~AccessibilityBus();

    /// What a program is started with so that it is reached here; with folders of its own.
    QProcessEnvironment environment() const { return m_environment; }
    /// The first window of this name of any program, once there is one.
    std::optional<AccessibleNode> window(const QString& name) const;

private:
    TemporaryFolder m_folder;
    QProcessEnvironment m_environment;
    QProcess m_session;
    QProcess m_launcher;
    std::optional<QDBusConnection> m_bus;
};

} // namespace tessivo::windowtest
