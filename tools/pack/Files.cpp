#include "pack/Files.h"

#include <QFile>
#include <QSaveFile>

using namespace Qt::StringLiterals;

Outcome<QByteArray> readFile(const Path& file)
{
    QFile source(file);
    if (!source.open(QIODevice::ReadOnly))
        return tl::unexpected(cannot("read"_L1, file, source.errorString()));

    auto content = source.readAll();
    if (source.error() != QFileDevice::NoError)
        return tl::unexpected(cannot("read"_L1, file, source.errorString()));
    return content;
}

Outcome<void> writeFile(const Path& file, const QByteArray& content)
{
    QSaveFile target(toText(file));
    if (!target.open(QIODevice::WriteOnly) || target.write(content) != content.size() || !target.commit())
        return tl::unexpected(cannot("write"_L1, file, target.errorString()));
    return {};
}

QString cannot(QLatin1StringView what, const Path& place, const QString& reason)
{
    return u"cannot %1 %2: %3"_s.arg(what, toText(place), reason);
}
