#include "platform/desktop/DesktopWorkspace.h"

#include "platform/desktop/BundleOpening.h"
#include "platform/desktop/DesktopEntries.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDir>
#include <QUrl>

#include <utility>

using namespace Qt::StringLiterals;

namespace {

QString fileAddress(const Path& place)
{
    return QString::fromLatin1(QUrl::fromLocalFile(toText(place)).toEncoded());
}

} // namespace

DesktopWorkspace::DesktopWorkspace()
    : m_registry({"/Applications", toPath(QDir::homePath()) / "Applications"})
{
    // One program on a slow disk must not hold up the next.
    m_openings.setMaxThreadCount(16);
}

std::optional<Path> DesktopWorkspace::urlForApplication(const QString& bundleID)
{
    return m_registry.applicationWithIdentifier(bundleID);
}

void DesktopWorkspace::openApplication(const Path& place, std::function<void(Result<void>)> done)
{
    m_openings.start([place, report = std::move(done)]() noexcept {
        report(place.extension() == ".desktop" ? openDesktopEntry(place) : openBundle(place));
    });
}

void DesktopWorkspace::openURL(const QString& address)
{
    m_openings.start([address]() noexcept { openWithDefaultProgram(address); });
}

void DesktopWorkspace::reveal(const Path& file)
{
    const QDBusConnection bus = QDBusConnection::sessionBus();
    // Without a bus there is no answer either, not even a failure.
    if (!bus.isConnected())
        return openURL(fileAddress(file.parent_path()));

    auto request = QDBusMessage::createMethodCall(u"org.freedesktop.FileManager1"_s,
        u"/org/freedesktop/FileManager1"_s, u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    request << QStringList{fileAddress(file)} << QString();

    const auto call = bus.asyncCall(request);
    auto* watcher = new QDBusPendingCallWatcher(call, &m_replies);
    const auto openFolder = [this, watcher, folder = fileAddress(file.parent_path())] {
        if (watcher->isError())
            openURL(folder);
        watcher->deleteLater();
    };
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, &m_replies, openFolder);
}
