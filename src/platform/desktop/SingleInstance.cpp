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

/// The bus's own numbers for a name that is requested without queueing for it.
constexpr uint doNotQueue = 4;
constexpr uint primaryOwner = 1;
constexpr uint nameExists = 3;

constexpr const char* tokenVariable = "XDG_ACTIVATION_TOKEN";

uint requestName(const QDBusConnection& bus, const QString& name, int patience)
{
    auto request = QDBusMessage::createMethodCall(
        u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s, u"org.freedesktop.DBus"_s, u"RequestName"_s);
    request << name << doNotQueue;
    return bus.call(request, QDBus::Block, patience).arguments().value(0).toUInt();
}

/// Lets Qt try once in vain: it remembers that there is no bus. An address of the user's is left for the
/// programs that are started from here; where there is none, what stands in for it keeps a bus from being
/// started later.
void doWithoutBus()
{
    const QByteArray own = qgetenv(addressVariable);
    qputenv(addressVariable, noAddress);
    QDBusConnection::sessionBus();
    if (!own.isEmpty())
        qputenv(addressVariable, own);
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

bool activateOther(const QDBusConnection& bus, const QString& name, int patience)
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

SingleInstance::SingleInstance(QString name, std::function<void()> raise, std::chrono::milliseconds patience)
    : m_name(std::move(name))
    , m_patience(patience)
    , m_application(std::make_unique<Application>(std::move(raise)))
{
}

SingleInstance::~SingleInstance() = default;

SingleInstance::Role SingleInstance::claim()
{
    if (probeSessionBus(m_patience) != SessionBus::Answers) {
        doWithoutBus();
        return Role::Alone;
    }

    auto bus = QDBusConnection::sessionBus();
    const int patience = int(m_patience.count());
    // Before the name: whoever finds it owned calls the object at once.
    bus.registerObject(objectPath, m_application.get(), QDBusConnection::ExportAllSlots);
    switch (requestName(bus, m_name, patience)) {
    case primaryOwner:
        return Role::First;
    case nameExists:
        return activateOther(bus, m_name, patience) ? Role::Second : Role::Alone;
    default:
        return Role::Alone;
    }
}

#include "SingleInstance.moc"
