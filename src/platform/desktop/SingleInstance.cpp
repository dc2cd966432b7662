#include "platform/desktop/SingleInstance.h"

#include "platform/desktop/SessionBus.h"

#include <QCryptographicHash>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView objectPath("/org/orbanel/PloviStore");
constexpr QLatin1StringView interfaceName("org.freedesktop.Application");

constexpr int patience = 2000; // in milliseconds
constexpr const char* tokenVariable = "XDG_ACTIVATION_TOKEN";

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

bool activateOther(const QDBusConnection& bus, const QString& name)
{
    auto request = QDBusMessage::createMethodCall(name, objectPath, interfaceName, u"Activate"_s);
    request << platformData();
    request.setAutoStartService(false);
    return bus.call(request, QDBus::Block, patience).type() == QDBusMessage::ReplyMessage;
}

} // namespace

QString instanceName(const QString& identifier, const Path& place)
{
    const QByteArray bundle = identifier.toUtf8() + '\0' + QByteArray::fromStdString(place.native());
    return u"org.orbanel.PloviStore.x"_s
        + QString::fromLatin1(QCryptographicHash::hash(bundle, QCryptographicHash::Sha1).toHex());
}

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

SingleInstance::SingleInstance(QString name, std::function<void()> raise)
    : m_name(std::move(name)), m_application(std::make_unique<Application>(std::move(raise)))
{
}

SingleInstance::~SingleInstance() = default;

SingleInstance::Role SingleInstance::claim()
{
    startNoSessionBus();
    auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return Role::Alone;
    // Before the name: whoever finds it owned calls the object at once.
    bus.registerObject(objectPath, m_application.get(), QDBusConnection::ExportAllSlots);
    if (bus.registerService(m_name))
        return Role::First;
    return activateOther(bus, m_name) ? Role::Second : Role::Alone;
}

#include "SingleInstance.moc"
