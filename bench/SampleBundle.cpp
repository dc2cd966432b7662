#include "SampleBundle.h"

#include "catalog/Catalog.h"

#include <QFile>

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

StoreApp entry(int index)
{
    const QString sentence =
        u"Ещё одно приложение под номером %1, о котором рассказано подробно. "_s.arg(index);
    return {
        .id = u"app%1"_s.arg(index),
        .name = inTurn(names, index),
        .category = inTurn(categories, index),
        .subtitle = u"Коротко о приложении %1"_s.arg(index),
        .headline = u"Порядок без лишних вопросов"_s,
        .description = sentence.repeated(8),
        .tint = u"red"_s,
        .version = u"1.%1"_s.arg(index),
        .bundleID = u"org.orbanel.app%1"_s.arg(index),
        .minimum = u"13.0"_s,
        .archive = u"App%1.zip"_s.arg(index),
        .sha256 = u"0123456789abcdef"_s.repeated(4),
        .architecture = u"arm64 x86_64"_s,
        .features = {u"Быстрый поиск"_s, u"Отмена действий"_s, u"Работа без сети"_s},
        .bytes = 1'000'000 + index,
    };
}

} // namespace

QByteArray sampleCatalog(int entries)
{
    Catalog catalog;
    for (int index = 0; index < entries; ++index)
        catalog.push_back(entry(index));
    return encodeCatalog(catalog);
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
