#include "pack/Bundle.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QLoggingCategory>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

int fail(const QString& text)
{
    std::fprintf(stderr, "plovistore-pack: %s\n", qUtf8Printable(text));
    return EXIT_FAILURE;
}

} // namespace

int main(int argc, char* argv[])
{
    const QCoreApplication application(argc, argv);
    // Why a drawing cannot be used is said once, in our own line.
    QLoggingCategory::setFilterRules(u"qt.svg*=false"_s);

    const QCommandLineOption collection(
        u"collection"_s, u"The folder with collection.json and the drawings."_s, u"folder"_s);
    const QCommandLineOption apps(
        u"apps"_s, u"The folder with one application <name>.app for each entry."_s, u"folder"_s);
    const QCommandLineOption output(
        u"output"_s, u"Where to put the resources: X.app/Contents/Resources."_s, u"folder"_s);

    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Packs a collection of applications into the resources of the store."_s);
    parser.addOptions({collection, apps, output});
    const auto help = parser.addHelpOption();

    if (!parser.parse(QCoreApplication::arguments()))
        return fail(parser.errorText());
    if (parser.isSet(help)) {
        std::fputs(qUtf8Printable(parser.helpText()), stdout);
        return EXIT_SUCCESS;
    }
    for (const auto& option : {collection, apps, output}) {
        if (parser.value(option).isEmpty())
            return fail(u"--%1 is missing; --help shows the options"_s.arg(option.names().constFirst()));
    }
    if (!parser.positionalArguments().isEmpty())
        return fail(u"unexpected argument \"%1\""_s.arg(parser.positionalArguments().constFirst()));

    const auto packed = packBundle({.collection = toPath(parser.value(collection)),
        .apps = toPath(parser.value(apps)),
        .output = toPath(parser.value(output))});
    return packed ? EXIT_SUCCESS : fail(packed.error());
}
