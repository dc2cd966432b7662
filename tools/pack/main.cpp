#include "pack/files/FileAccess.h"
#include "pack/verbs/Verbs.h"

#include <CLI/CLI.hpp>

#include <clocale>
#include <cstdio>
#include <new>
#include <sys/stat.h>
#include <sysexits.h>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

/// What stands behind the verb. Texts that were not given are empty.
struct Arguments {
    std::string place;
    std::string other;
    std::vector<std::string> apps;
    std::string appsFolder;
    std::string program;
    std::string identifier;
    std::string version;
    std::string name;
    std::string icon;
    bool json = false;
    bool strict = false;

    Format format() const { return json ? Format::Json : Format::Text; }
    Reporting reporting() const { return {format(), strict}; }
    SourceOrder source() const
    {
        return {.source = place,
            .identifier = QString::fromStdString(identifier),
            .version = QString::fromStdString(version),
            .name = QString::fromStdString(name),
            .icon = icon};
    }
    std::optional<Path> appsPath() const
    {
        return appsFolder.empty() ? std::nullopt : std::optional<Path>(appsFolder);
    }
};

/// The bundle that this tool was built or installed with.
Path ownProgram()
{
    std::error_code error;
    const Path folder = fs::canonical("/proc/self/exe", error).parent_path();
    for (const char* const place : {"../program/PloviStore.app", "../lib/plovistore/PloviStore.app"}) {
        Path program = (folder / place).lexically_normal();
        if (fs::exists(program, error))
            return program;
    }
    return (folder / "../PloviStore.app").lexically_normal();
}

/// Adds one name, or several, that the verb does not do without.
template <class Names>
void addPlace(CLI::App& verb, const char* title, Names& names, const char* help)
{
    const auto isName = [](const std::string& text) { return text.empty() ? "an empty name" : ""; };
    verb.add_option(title, names, help)->required()->type_name("")->check(isName, "");
}

void addFolder(CLI::App& verb, const char* option, std::string& folder, const char* title, const char* help)
{
    verb.add_option(option, folder, help)->type_name(title)->take_last();
}

void addJson(CLI::App& verb, Arguments& given)
{
    verb.add_flag("--json", given.json, "write one JSON object instead of lines");
}

/// Describes the verbs; parsing then runs the one that is given.
void addVerbs(CLI::App& tool, Arguments& given, Result<int>& status)
{
    CLI::App& make = *tool.add_subcommand("new", "make a collection from applications");
    addPlace(make, "COLLECTION", given.place, "the folder to make, which must not exist");
    addPlace(make, "APP.app", given.apps, "the applications");
    make.footer("Name, identifier, version, minimum, architecture and icon are the application's own; the\n"
                "texts are yours to write, and a brand image and a screenshot are there to begin with.");
    make.callback([&] { status = makeCollection(given.place, {given.apps.begin(), given.apps.end()}); });

    CLI::App& bundle = *tool.add_subcommand("bundle", "make an application of a program or a script");
    addPlace(bundle, "SOURCE", given.place, "the program or the script");
    addPlace(bundle, "NAME.app", given.other, "the bundle to make, or to replace");
    addFolder(bundle, "--id", given.identifier, "ID", "the identifier, such as org.example.Kite");
    addFolder(bundle, "--version", given.version, "VERSION", "the version");
    addFolder(bundle, "--name", given.name, "TEXT", "the name");
    addFolder(bundle, "--icon", given.icon, "PICTURE", "a square drawing or picture");
    addJson(bundle, given);
    bundle.footer(
        "Examples:\n"
        "  plovistore-pack bundle kite.sh Kite.app --id org.example.Kite --version 1.0\n"
        "  plovistore-pack bundle build/kite Kite.app --id org.example.Kite --version 1.0 --icon kite.svg");
    bundle.callback([&] { status = makeBundle(given.source(), given.other, given.format()); });

    CLI::App& check = *tool.add_subcommand("check", "tell what is wrong with a collection or a store");
    addPlace(check, "PATH", given.place, "a collection's folder or a store's .app");
    addFolder(check, "--apps", given.appsFolder, "DIR",
        "where the collection's applications lie, instead of PATH/apps");
    addJson(check, given);
    check.add_flag("--strict", given.strict, "end with status 2 for warnings too");
    check.footer(
        "Writes nothing. A store's archives are read through to the applications in them; any number\n"
        "of entries can be proved.");
    check.callback([&] { status = ::check(given.place, given.appsPath(), given.reporting()); });

    CLI::App& pack = *tool.add_subcommand("pack", "pack a collection into a store");
    addPlace(pack, "COLLECTION", given.place,
        "the folder with collection.json, Brand.svg, BriskoScreen.png, icons/ and apps/");
    addPlace(pack, "STORE.app", given.other, "the store to make, or to replace");
    addFolder(
        pack, "--apps", given.appsFolder, "DIR", "where the applications lie, instead of COLLECTION/apps");
    addFolder(pack, "--program", given.program, "STORE.app",
        "the bundle to take program, window and Info.plist from, instead of the one that this tool belongs "
        "to");
    addJson(pack, given);
    pack.add_flag("--strict", given.strict, "end with status 2, and without a store, for warnings too");
    pack.footer("The store is proved and replaced in one step, and only if there is no error. The same\n"
                "collection gives the same bytes.");
    pack.callback([&] {
        status = ::pack({.collection = given.place,
                            .store = given.other,
                            .apps = given.appsPath().value_or(Path(given.place) / "apps"),
                            .program = given.program.empty() ? ownProgram() : Path(given.program)},
            given.reporting());
    });

    CLI::App& diff = *tool.add_subcommand("diff", "tell which entries differ between two stores");
    addPlace(diff, "OLD.app", given.place, "the one store");
    addPlace(diff, "NEW.app", given.other, "the other store");
    addJson(diff, given);
    diff.footer("Ends with status 2 when they differ.");
    diff.callback([&] { status = ::diff(given.place, given.other, given.format()); });

    CLI::App& sums = *tool.add_subcommand("sums", "write what `sha256sum -c` reads");
    addPlace(sums, "STORE.app", given.place, "the store whose files are summed");
    sums.callback([&] { status = ::sums(given.place); });
}

int run(int argc, char* argv[])
{
    CLI::App tool("Makes and proves stores from collections of applications.", "plovistore-pack");
    tool.set_help_flag("--help", "say how the tool, or the verb before it, is used");
    tool.set_version_flag("--version", "plovistore-pack " PLOVI_VERSION, "the version of this tool");
    tool.require_subcommand(0, 1);
    tool.get_formatter()->label("OPTIONS", "OPTION...");
    tool.get_formatter()->label("SUBCOMMAND", "VERB");
    tool.footer(
        "Exit status: 0 nothing is wrong; 1 something cannot be read or written; 2 errors were found,\n"
        "or entries differ; 64 wrong arguments.");
    Arguments given;
    Result<int> status;
    addVerbs(tool, given, status);
    try {
        tool.parse(argc, argv);
        if (tool.get_subcommands().empty())
            throw CLI::RequiredError("a verb");
    } catch (const CLI::ParseError& error) {
        if (error.get_exit_code() == 0)
            return tool.exit(error);
        std::fprintf(stderr, "plovistore-pack: %s; --help tells more\n", error.what());
        return EX_USAGE;
    } catch (const std::bad_alloc&) {
        status = tl::unexpected(Failure{packDomain, 1, u"memory is short"_s});
    }
    if (!status)
        std::fprintf(stderr, "plovistore-pack: %s\n", qUtf8Printable(status.error().localizedDescription));
    return status.value_or(1);
}

} // namespace

int main(int argc, char* argv[])
{
    // Names are UTF-8 and reasons English in every locale.
    std::setlocale(LC_ALL, "C.UTF-8");
    // Everybody can read what is made, whoever makes it.
    umask(S_IWGRP | S_IWOTH);
    const int status = run(argc, argv);
    if (std::fflush(stdout) != 0 || std::ferror(stdout) != 0) {
        std::perror("plovistore-pack: cannot write to standard output");
        return 1;
    }
    return status;
}
