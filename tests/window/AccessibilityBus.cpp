#include "tests/window/AccessibilityBus.h"

#include <QDBusArgument>
#include <QDBusMessage>
#include <QDBusVariant>
#include <QFileInfo>
#include <QTest>
#include <stdexcept>

namespace tessivo::windowtest {
namespace {

constexpr const char* registry = "org.a11y.atspi.Registry";
constexpr const char* rootPath = "/org/a11y/atspi/accessible/root";
constexpr const char* accessible = "org.a11y.atspi.Accessible";
constexpr const char* action = "org.a11y.atspi.Action";
constexpr const char* editable = "org.a11y.atspi.EditableText";
constexpr const char* text = "org.a11y.atspi.Text";
constexpr const char* value = "org.a11y.atspi.Value";
constexpr const char* propertiesInterface = "org.freedesktop.DBus.Properties";
constexpr int patience = 20'000; // milliseconds
// The places of states in the bus' two words of bits.
constexpr int checkedState = 4, enabledState = 8, selectedState = 23, showingState = 25;

QString latin(const char* letters) {
    return QString::fromLatin1(letters);
}

} // namespace

QVariant AccessibleNode::call(const char* interface, const char* method,
                              const QVariantList& arguments) const {
    QDBusMessage message = QDBusMessage::createMethodCall(m_program, m_path, latin(interface), latin(method));
    message.setArguments(arguments);
    const QDBusMessage answer = m_bus.call(message, QDBus::Block, patience);
    if (answer.type() != QDBusMessage::ReplyMessage || answer.arguments().isEmpty()) return {};
    return answer.arguments().constFirst();
}

QVariant AccessibleNode::property(const char* interface, const char* name) const {
    return call(propertiesInterface, "Get", {latin(interface), latin(name)}).value<QDBusVariant>().variant();
}

QString AccessibleNode::name() const {
    return property(accessible, "Name").toString();
}

QString AccessibleNode::role() const {
    return call(accessible, "GetRoleName").toString();
}

QString AccessibleNode::content() const {
    const QVariant length = property(text, "CharacterCount");
    if (length.isValid()) return call(text, "GetText", {0, length}).toString();
    return property(value, "CurrentValue").toString();
}

bool AccessibleNode::hasState(int state) const {
    const auto words = qdbus_cast<QList<uint>>(call(accessible, "GetState"));
    return !words.isEmpty() && (words.constFirst() >> state & 1u);
}

bool AccessibleNode::isShown() const {
    return hasState(showingState);
}

bool AccessibleNode::isEnabled() const {
    return hasState(enabledState);
}

bool AccessibleNode::isSelected() const {
    return hasState(selectedState);
}

bool AccessibleNode::isChecked() const {
    return hasState(checkedState);
}

std::vector<AccessibleNode> AccessibleNode::children() const {
    std::vector<AccessibleNode> nodes;
    const QVariant answer = call(accessible, "GetChildren");
    if (!answer.isValid()) return nodes;
    const auto list = answer.value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        QString program;
        QDBusObjectPath path;
        list.beginStructure();
        list >> program >> path;
        list.endStructure();
        nodes.emplace_back(m_bus, program, path.path());
    }
    list.endArray();
    return nodes;
}

bool AccessibleNode::press() const {
    return call(action, "DoAction", {0}).toBool();
}

bool AccessibleNode::type(const QString& letters) const {
    return call(editable, "SetTextContents", {letters}).toBool();
}

std::optional<AccessibleNode> AccessibleNode::find(const QString& wantedRole,
                                                   const QString& wantedName) const {
    if (role() == wantedRole && name().startsWith(wantedName) && isShown()) return *this;
    for (const AccessibleNode& child : children())
        if (auto found = child.find(wantedRole, wantedName)) return found;
    return std::nullopt;
}

AccessibilityBus::AccessibilityBus() : m_environment(QProcessEnvironment::systemEnvironment()) {
    m_session.start(QStringLiteral("dbus-daemon"), {QStringLiteral("--session"), QStringLiteral("--nofork"),
                                                    QStringLiteral("--print-address")});
    while (!m_session.canReadLine())
        if (!m_session.waitForReadyRead(patience)) throw std::runtime_error("dbus-daemon doesn't start");
    const QString session = QString::fromLatin1(m_session.readLine().trimmed());
    const QString home = QString::fromStdString(m_folder.path().string());
    for (const char* name : {"HOME", "XDG_RUNTIME_DIR", "XDG_CONFIG_HOME", "XDG_DATA_HOME"})
        m_environment.insert(latin(name), home);
    m_environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"), session);
    m_environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));

    QString launcher = QStringLiteral("/usr/libexec/at-spi-bus-launcher");
    if (!QFileInfo::exists(launcher)) launcher = QStringLiteral("/usr/lib/at-spi2-core/at-spi-bus-launcher");
    m_launcher.setProcessEnvironment(m_environment);
    m_launcher.setStandardErrorFile(QProcess::nullDevice());
    m_launcher.start(launcher, {QStringLiteral("--launch-immediately")});
    const auto sessionBus = QDBusConnection::connectToBus(session, QStringLiteral("tessivo-test-session"));
    QString address;
    const bool answered = QTest::qWaitFor(
        [&] {
            const QDBusMessage answer = sessionBus.call(QDBusMessage::createMethodCall(
                QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
                QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress")));
            if (answer.type() == QDBusMessage::ReplyMessage) address = answer.arguments().value(0).toString();
            return !address.isEmpty();
        },
        patience);
    if (!answered) throw std::runtime_error("the accessibility bus doesn't start");
    m_bus = QDBusConnection::connectToBus(address, QStringLiteral("tessivo-test-accessibility"));
}

AccessibilityBus::~AccessibilityBus() {
    m_bus.reset();
    QDBusConnection::disconnectFromBus(QStringLiteral("tessivo-test-accessibility"));
    QDBusConnection::disconnectFromBus(QStringLiteral("tessivo-test-session"));
    for (QProcess* process : {&m_launcher, &m_session}) {
        process->terminate();
        if (!process->waitForFinished(5'000)) process->kill();
        process->waitForFinished(5'000);
    }
}

std::optional<AccessibleNode> AccessibilityBus::window(const QString& name) const {
    std::optional<AccessibleNode> found;
    const auto look = [&] {
        for (const AccessibleNode& program :
             AccessibleNode(*m_bus, latin(registry), latin(rootPath)).children())
            for (const AccessibleNode& window : program.children())
                if (window.name() == name) found = window;
        return found.has_value();
    };
    if (!QTest::qWaitFor(look, patience)) return std::nullopt;
    return found;
}

} // namespace tessivo::windowtest
