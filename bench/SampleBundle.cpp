#include "SampleBundle.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <array>

using namespace Qt::StringLiterals;

namespace {

constexpr std::array<QStringView, 3> categories{u"Утилиты", u"Медиа", u"Продуктивность"};
// Also the names of the icons.
constexpr std::array<QStringView, 4> names{u"Brisko", u"Kolvendi", u"Tezubra", u"Zvantelo"};

template <std::size_t count>
QString inTurn(const std::array<QStringView, count>& texts, int index)
{
    return texts.at(std::size_t(index) % count).toString();
}

QJsonObject entry(int index)
{
    const QString sentence =
        u"Ещё одно приложение под номером %1, о котором рассказано подробно. "_s.arg(index);
    return {
        {u"id"_s, u"app%1"_s.arg(index)},
        {u"name"_s, inTurn(names, index)},
        {u"category"_s, inTurn(categories, index)},
        {u"subtitle"_s, u"Коротко о приложении %1"_s.arg(index)},
        {u"headline"_s, u"Порядок без лишних вопросов"_s},
        {u"description"_s, sentence.repeated(8)},
        {u"tint"_s, u"red"_s},
        {u"version"_s, u"1.%1"_s.arg(index)},
        {u"bundleID"_s, u"org.orbanel.app%1"_s.arg(index)},
        {u"minimum"_s, u"13.0"_s},
        {u"archive"_s, u"App%1.zip"_s.arg(index)},
        {u"sha256"_s, u"0123456789abcdef"_s.repeated(4)},
        {u"architecture"_s, u"arm64 x86_64"_s},
        {u"features"_s, QJsonArray{u"Быстрый поиск"_s, u"Отмена действий"_s, u"Работа без сети"_s}},
        {u"bytes"_s, 1'000'000 + index},
    };
}

} // namespace

QByteArray sampleCatalog(int entries)
{
    QJsonArray catalog;
    for (int index = 0; index < entries; ++index)
        catalog.append(entry(index));
    return QJsonDocument(catalog).toJson();
}

SampleBundle::SampleBundle(int entries, const Path& iconFolder)
    : m_contents(toPath(m_folder.path()) / "PloviStore.app" / "Contents")
{
    const Path resources = m_contents / "Resources";
    std::filesystem::create_directories(resources);
    QFile catalog(resources / "catalog.json");
    if (!catalog.open(QFile::WriteOnly) || catalog.write(sampleCatalog(entries)) < 0)
        qFatal("The sample catalog cannot be written.");
    for (const QStringView name : names) {
        const Path icon = toPath(name.toString() + ".icns"_L1);
        std::filesystem::create_symlink(iconFolder / icon, resources / icon);
    }
}
