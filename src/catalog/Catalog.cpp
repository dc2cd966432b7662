#include "catalog/Catalog.h"

#include "catalog/EntryReading.h"
#include "platform/BundleLayout.h"

#include <cerrno>
#include <concepts>
#include <limits>
#include <new>

using namespace Qt::StringLiterals;

namespace {

tl::unexpected<Failure> failure(CatalogError error, const QString& description)
{
    return tl::unexpected(Failure{catalogDomain, static_cast<int>(error), description});
}

QString typeName(const QString&)
{
    return u"текст"_s;
}

QString typeName(const QStringList&)
{
    return u"список текстов"_s;
}

template <std::integral Number>
QString typeName(Number)
{
    if constexpr (std::same_as<Number, bool>)
        return u"true или false"_s;
    constexpr QStringView raised = u"⁰¹²³⁴⁵⁶⁷⁸⁹";
    QString power = QString::number(std::numeric_limits<Number>::digits);
    for (QChar& digit : power)
        digit = raised[digit.digitValue()];
    return u"целое число меньше 2"_s + power;
}

/// Why the key could not be read.
tl::unexpected<Failure> failure(
    KeyReading::State state, qsizetype position, CodingKeys key, const QString& typeName)
{
    const auto fail = [&](CatalogError error, const QString& description) {
        const std::string_view text = keyText(key);
        return failure(
            error, description.arg(position).arg(QLatin1StringView(text.data(), qsizetype(text.size()))));
    };
    if (state == KeyReading::State::Missing)
        return fail(CatalogError::MissingKey, u"В записи %1 каталога нет ключа «%2»."_s);
    if (state == KeyReading::State::Null)
        return fail(CatalogError::NullValue, u"В записи %1 каталога у ключа «%2» нет значения (null)."_s);
    return fail(CatalogError::WrongType,
        u"В записи %1 каталога у ключа «%2» неверное значение: здесь ожидается "_s + typeName + u'.');
}

/// The entry at this position, counted from 1.
Result<StoreApp> complete(EntryReading& entry, qsizetype position)
{
    if (!entry.isObject)
        return failure(CatalogError::NotAnEntry, u"Запись %1 каталога — не объект JSON."_s.arg(position));
    Result<StoreApp> app = std::move(entry.app);
    forEachField([&](CodingKeys key, auto field) {
        if (app && entry.at(key).state != KeyReading::State::Read)
            app = failure(entry.at(key).state, position, key, typeName((*app).*field));
    });
    return app;
}

Result<Catalog> complete(CatalogReading reading)
{
    if (reading.fault)
        return failure(CatalogError::NotJson,
            u"Файл каталога повреждён: ошибка JSON в строке %1."_s.arg(reading.fault->line));
    if (!reading.isList)
        return failure(CatalogError::NotAList, u"Файл каталога повреждён: это не список записей."_s);
    Catalog catalog;
    for (EntryReading& entry : reading.entries) {
        auto app = complete(entry, qsizetype(catalog.size()) + 1);
        if (!app)
            return tl::unexpected(std::move(app.error()));
        catalog.push_back(std::move(*app));
    }
    return catalog;
}

} // namespace

Result<Catalog> decodeCatalog(std::span<const std::byte> json)
{
    try {
        return complete(readEntries({reinterpret_cast<const char*>(json.data()), json.size()}));
    } catch (const std::bad_alloc&) {
        return tl::unexpected(systemFailure(ENOMEM));
    }
}

Result<Catalog> readCatalog(const Path& store, const Files& files)
{
    return files.read(bundle_layout::catalog(store)).and_then([](const QByteArray& json) {
        return decodeCatalog(std::as_bytes(std::span(json)));
    });
}
