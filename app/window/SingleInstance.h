#pragma once

#include <QLocalServer>
#include <QLockFile>
#include <QObject>

#include <filesystem>

namespace tessivo {

/// Keeps a second process off the session and the notes of the first: whichever stored last would undo what
/// the other was told. A second launch ends instead, and the first is told of it. Main thread.
class SingleInstance final : public QObject {
    Q_OBJECT
public:
    /// `folder` is where the instances would meet; it is made if it is missing. One that can't be written
    /// keeps nobody off.
    explicit SingleInstance(const std::filesystem::path& folder, QObject* parent = nullptr);

    /// False where another process has the folder.
    bool isFirst() const { return m_first; }
    /// Has the first come to the front, with what the desktop gave this process for that; false if it doesn't
    /// answer. Call it once.
    bool callFirst() const;

Q_SIGNALS:
    /// Another process was started and leaves the work to this one, and its activation token: what a Wayland
    /// desktop hands to the program that a person starts, and asks for when a window is to come forward.
    /// Empty where there is none.
    void startedAgain(const QByteArray& token);

private:
    QString m_name;
    QLockFile m_lock;
    bool m_first;
    QLocalServer m_server;
};

} // namespace tessivo
