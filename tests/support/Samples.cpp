#include "support/Samples.h"

using namespace Qt::StringLiterals;

namespace sample {

StoreApp brisko()
{
    return {
        .id = u"brisko"_s,
        .name = u"Brisko"_s,
        .category = u"Утилиты"_s,
        .subtitle = u"Аккуратно убирает программы"_s,
        .headline = u"Порядок без вопросов"_s,
        .description = u"Находит следы и показывает, сколько места они занимают."_s,
        .tint = u"red"_s,
        .version = u"2.4"_s,
        .bundleID = u"org.orbanel.brisko"_s,
        .minimum = u"13"_s,
        .archive = u"Brisko-2.4.zip"_s,
        // The digest of the text "archive of Brisko".
        .sha256 = u"655fdcc09107b91d68eee7f7dff63a20c6e5bfbc4c46a8dfc5f3d6f3ce92075f"_s,
        .architecture = u"arm64 x86_64"_s,
        .features = {u"Находит остатки"_s, u"Ничего не удаляет молча"_s},
        .bytes = 12'400'000,
    };
}

StoreApp kadrilo()
{
    return {
        .id = u"kadrilo"_s,
        .name = u"Kadrilo"_s,
        .category = u"Медиа"_s,
        .subtitle = u"Листает снимки"_s,
        .headline = u"Каждый кадр на месте"_s,
        .description = u"Открывает тысячи фотографий сразу."_s,
        .tint = u"blue"_s,
        .version = u"1.8"_s,
        .bundleID = u"org.orbanel.kadrilo"_s,
        .minimum = u"14"_s,
        .archive = u"Kadrilo-1.8.zip"_s,
        .sha256 = u"0000000000000000000000000000000000000000000000000000000000000000"_s,
        .architecture = u"arm64"_s,
        .features = {u"Быстро"_s},
        .bytes = 31'000'000,
    };
}

} // namespace sample

void PrintTo(const StoreApp& app, std::ostream* out)
{
    *out << app.id.toStdString() << ' ' << app.version.toStdString();
}

void PrintTo(const Failure& failure, std::ostream* out)
{
    *out << failure.domain.toStdString() << ' ' << failure.code << ": "
         << failure.localizedDescription.toStdString();
}

void PrintTo(const QString& text, std::ostream* out)
{
    *out << '"' << text.toStdString() << '"';
}
