#include "pack/files/FileAccess.h"
#include "pack/verbs/Verbs.h"

#include <array>
#include <clocale>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <map>
#include <new>
#include <span>
#include <sysexits.h>

using namespace Qt::StringLiterals;
namespace fs = std::filesystem;

namespace {

constexpr char generalHelp[] = R"(usage: plovistore-pack VERB ARGUMENT...

Makes and proves stores from collections of applications.

  new COLLECTION APP.app...       make a collection from applications
  check PATH                      tell what is wrong with a collection or a store
  pack COLLECTION STORE.app       pack a collection into a store
  diff OLD.app NEW.app            tell which entries differ between two stores
  sums STORE.app                  write what `sha256sum -c` reads

  --help      with a verb: what it takes
  --version   the version of this tool

Exit status: 0 nothing is wrong; 1 something cannot be read or written; 2
errors were found, or entries differ; 64 wrong arguments.
)";

constexpr char newHelp[] = R"(usage: plovistore-pack new COLLECTION APP.app...

Makes the folder COLLECTION, which must not exist: collection.json with an
entry for each application, a brand image and a screenshot to begin with, the
applications in apps/ and their icons in icons/. Name, identifier, version,
minimum, architecture and icon are the application's own; the texts are yours
to write.
)";

constexpr char checkHelp[] = R"(usage: plovistore-pack check PATH [--apps DIR] [--json] [--strict]

Tells everything that is wrong with PATH, a collection's folder or a store's
.app, and writes nothing. A store's archives are read through to the
applications in them; any number of entries can be proved.

  --apps DIR   where the collection's applications lie, instead of PATH/apps
  --json       write one JSON object instead of lines
  --strict     end with status 2 for warnings too
)";

constexpr char packHelp[] =
    R"(usage: plovistore-pack pack COLLECTION STORE.app [--apps DIR]
                            [--program STORE.app] [--json] [--strict]

Packs COLLECTION (collection.json, Brand.svg, BriskoScreen.png, icons/, apps/)
into a whole store and proves it. STORE.app is replaced in one step, and only
if there is no error. The same collection gives the same bytes.

  --apps DIR            where the applications lie, instead of COLLECTION/apps
  --program STORE.app   the bundle to take program, window and Info.plist from,
                        instead of the one that this tool belongs to
  --json                write one JSON object instead of lines
  --strict              end with status 2, and without a store, for warnings too
)";

constexpr char diffHelp[] = R"(usage: plovistore-pack diff OLD.app NEW.app [--json]

Tells which entries were added, removed and changed from one store to the
other. Ends with status 2 when they differ.

  --json   write one JSON object instead of lines
)";

constexpr char sumsHelp[] = R"(usage: plovistore-pack sums STORE.app

Writes a line with the SHA-256 of every file of the store, for `sha256sum -c`.
)";

/// What stands behind the verb.
struct Arguments {
    std::vector<Path> places;
    std::map<std::string, std::string> options;

    bool has(const std::string& option) const { return options.contains(option); }
    std::optional<Path> path(const std::string& option) const
    {
        const auto found = options.find(option);
        return found == options.end() ? std::nullopt : std::optional<Path>(found->second);
    }
    Reporting reporting() const { return {has("--json") ? Format::Json : Format::Text, has("--strict")}; }
};

struct Verb {
    const char* name;
    const char* help;
    /// How many places it takes.
    std::size_t least;
    std::size_t most;
    /// The options that it knows; those with "=" behind take a value.
    std::vector<std::string> options;
    std::function<Result<int>(const Arguments&)> run;
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

Result<int> runPack(const Arguments& given)
{
    const PackOrder order{.collection = given.places[0],
        .store = given.places[1],
        .apps = given.path("--apps").value_or(given.places[0] / "apps"),
        .program = given.path("--program").value_or(ownProgram())};
    return pack(order, given.reporting());
}

const std::vector<Verb>& verbs()
{
    static const std::vector<Verb> list{
        {"new", newHelp, 2, 10'000, {},
            [](const Arguments& given) {
                return makeCollection(given.places[0], {given.places.begin() + 1, given.places.end()});
            }},
        {"check", checkHelp, 1, 1, {"--apps=", "--json", "--strict"},
            [](const Arguments& given) {
                return check(given.places[0], given.path("--apps"), given.reporting());
            }},
        {"pack", packHelp, 2, 2, {"--apps=", "--program=", "--json", "--strict"}, runPack},
        {"diff", diffHelp, 2, 2, {"--json"},
            [](const Arguments& given) {
                return diff(given.places[0], given.places[1], given.reporting().format);
            }},
        {"sums", sumsHelp, 1, 1, {}, [](const Arguments& given) { return sums(given.places[0]); }},
    };
    return list;
}

int wrongArguments(const std::string& what)
{
    std::fprintf(stderr, "plovistore-pack: %s; --help tells more\n", what.c_str());
    return EX_USAGE;
}

/// The arguments; or what is wrong with them.
tl::expected<Arguments, std::string> parse(const Verb& verb, std::span<char*> given)
{
    Arguments arguments;
    const auto knows = [&](const std::string& option) {
        return std::find(verb.options.begin(), verb.options.end(), option) != verb.options.end();
    };
    bool onlyPlaces = false;
    for (auto argument = given.begin(); argument != given.end(); ++argument) {
        const std::string text = *argument;
        const auto equals = text.find('=');
        const std::string option = text.substr(0, equals);
        if (onlyPlaces || !text.starts_with("-") || text == "-") {
            if (text.empty())
                return tl::unexpected(std::string("an empty name"));
            arguments.places.emplace_back(text);
        } else if (text == "--") {
            onlyPlaces = true;
        } else if (text == "--help" || knows(text)) {
            arguments.options[text];
        } else if (!knows(option + '=')) {
            return tl::unexpected("unknown option " + text);
        } else if (equals != std::string::npos) {
            arguments.options[option] = text.substr(equals + 1);
        } else if (++argument != given.end()) {
            arguments.options[option] = *argument;
        } else {
            return tl::unexpected(option + " needs a value");
        }
    }
    const auto count = arguments.places.size();
    if (!arguments.has("--help") && (count < verb.least || count > verb.most))
        return tl::unexpected(
            std::string(verb.name) + (count < verb.least ? " needs more" : " takes fewer") + " names");
    return arguments;
}

/// The status, unless something that was written has not arrived.
int ending(int status)
{
    if (std::fflush(stdout) != 0) {
        std::perror("plovistore-pack: cannot write to standard output");
        return 1;
    }
    if (std::ferror(stdout) != 0) {
        std::fputs("plovistore-pack: cannot write to standard output\n", stderr);
        return 1;
    }
    return status;
}

int run(const Verb& verb, std::span<char*> given)
{
    const auto arguments = parse(verb, given);
    if (!arguments)
        return wrongArguments(arguments.error());
    if (arguments->has("--help")) {
        std::fputs(verb.help, stdout);
        return ending(0);
    }
    const auto status = verb.run(*arguments);
    if (!status) {
        std::fprintf(stderr, "plovistore-pack: %s\n", qUtf8Printable(status.error().localizedDescription));
        return 1;
    }
    return ending(*status);
}

} // namespace

int main(int argc, char* argv[])
{
    // Names are UTF-8 and reasons English in every locale.
    std::setlocale(LC_ALL, "C.UTF-8");
    const std::span arguments(argv, std::size_t(argc));
    if (arguments.size() < 2)
        return wrongArguments("what shall be done?");
    const std::string_view first = arguments[1];
    if (first == "--help") {
        std::fputs(generalHelp, stdout);
        return ending(0);
    }
    if (first == "--version") {
        std::printf("plovistore-pack %s\n", PLOVI_VERSION);
        return ending(0);
    }
    for (const Verb& verb : verbs()) {
        if (first == verb.name) {
            try {
                return run(verb, arguments.subspan(2));
            } catch (const std::bad_alloc&) {
                std::fputs("plovistore-pack: memory is short\n", stderr);
                return 1;
            }
        }
    }
    return wrongArguments("unknown verb " + std::string(first));
}
