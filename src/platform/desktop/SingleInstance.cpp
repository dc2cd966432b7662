#include "platform/desktop/SingleInstance.h"

#include "platform/desktop/SessionBus.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView serviceName("org.orbanel.PloviStore");
constexpr QLatin1StringView objectPath("/org/orbanel/PloviStore");
constexpr QLatin1StringView interfaceName("org.freedesktop.Application");

/// The bus's own numbers for a name that is requested without queueing for it.
constexpr uint doNotQueue = 4;
constexpr uint primaryOwner = 1;
constexpr uint nameExists = 3;

constexpr const char* tokenVariable = "XDG_ACTIVATION_TOKEN";

uint requestName(const QDBusConnection& bus, int patience)
{
    auto request = QDBusMessage::createMethodCall(
        u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"RequestName"_s);
    request << QString(serviceName) << doNotQueue;
    return bus.call(request, QDBus::Block, patience).arguments().value(0).toUInt();
}

/// What lets the other process bring its window to the front in our stead.
QVariantMap platformData()
{
    QVariantMap data;
    if (qEnvironmentVariableIsSet(tokenVariable))
        data[u"activation-token"_s] = qEnvironmentVariable(tokenVariable);
    if (qEnvironmentVariableIsSet("DESKTOP_STARTUP_ID"))
        data[u"desktop-startup-id"_s] = qEnvironmentVariable("DESKTOP_STARTUP_ID");
    return data;
}

bool activateOther(const QDBusConnection& bus, int patience)
{
    auto request = QDBusMessage::createMethodCall(serviceName, objectPath, interfaceName, u"Activate"_s);
    request << platformData();
    request.setAutoStartService(false);
    return bus.call(request, QDBus::Block, patience).type() == QDBusMessage::ReplyMessage;
}

} // namespace

class SingleInstance::Application final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit Application(std::function<void()> raise) : m_raise(std::move(raise)) { }

public Q_SLOTS:
    void Activate(const QVariantMap& platformData)
    {
        // Qt hands the token on with the next request to activate a window.
        if (const auto token = platformData.value(u"activation-token"_s).toByteArray(); !token.isEmpty())
            qputenv(tokenVariable, token);
        m_raise();
    }

private:
    std::function<void()> m_raise;
};

SingleInstance::SingleInstance(std::function<void()> raise, std::chrono::milliseconds patience)
    : m_patience(patience), m_application(std::make_unique<Application>(std::move(raise)))
{
}

SingleInstance::~SingleInstance() = default;

SingleInstance::Role SingleInstance::claim()
{
    const auto state = probeSessionBus(m_patience);
    if (state == SessionBus::Silent)
        qputenv("DBUS_SESSION_BUS_ADDRESS", "disabled:");
    if (state != SessionBus::Answers)
        return Role::Alone;

    auto bus = QDBusConnection::sessionBus();
    const int patience = int(m_patience.count());
    // Before the name: whoever finds it owned calls the object at once.
    bus.registerObject(objectPath, m_application.get(), QDBusConnection::ExportAllSlots);
    switch (requestName(bus, patience)) {
    case primaryOwner:
        return Role::First;
    case nameExists:
        return activateOther(bus, patience) ? Role::Second : Role::Alone;
    default:
        return Role::Alone;
    }
}

#include "SingleInstance.moc"
