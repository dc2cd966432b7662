#include "SampleBundle.h"

#include "catalog/Catalog.h"

#include <QFile>

#include <array>
#include <random>

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

/// A text of an entry's own, so that a processor that has learnt one by heart is no faster at the next.
QString description(int index)
{
    constexpr auto words = std::to_array<QStringView>({u"в", u"и", u"не", u"на", u"вы", u"под", u"без",
        u"для", u"файл", u"окно,", u"место", u"запись", u"перед", u"всегда", u"настройки", u"программу",
        u"показывает", u"легко", u"несколько", u"журналами,", u"папки", u"вместе", u"приложения", u"—"});
    std::minstd_rand random(std::uint32_t(index) + 1);
    QString text = u"Ещё одно приложение под номером %1. "_s.arg(index);
    while (text.size() < 540)
        text += words.at(random() % words.size()).toString() + u' ';
    return text;
}

StoreApp entry(int index)
{
    return {
        .id = u"app%1"_s.arg(index),
        .name = inTurn(names, index),
        .category = inTurn(categories, index),
        .subtitle = u"Коротко о приложении %1"_s.arg(index),
        .headline = u"Порядок в приложении %1"_s.arg(index),
        .description = description(index),
        .tint = u"red"_s,
        .version = u"1.%1"_s.arg(index),
        .bundleID = u"org.orbanel.app%1"_s.arg(index),
        .minimum = u"13.0"_s,
        .archive = u"App%1.zip"_s.arg(index),
        .sha256 = QString::number(index).rightJustified(64, u'0'),
        .architecture = u"arm64 x86_64"_s,
        .features = {u"Быстрый поиск"_s, u"Отмена %1 действий"_s.arg(index), u"Работа без сети"_s},
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
