#include "platform/desktop/BundleOpening.h"

#include "platform/BundleLayout.h"
#include "platform/desktop/ProgramEnvironment.h"
#include "platform/posix/BundleInfo.h"

#include <QDir>

#include <sys/wait.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <filesystem>
#include <fstream>
#include <spawn.h>
#include <thread>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

/// Everything that decides how the new process differs from this one.
class SpawnSetup {
public:
    explicit SpawnSetup(const Path& workingFolder)
    {
        posix_spawnattr_init(&attributes);
        sigset_t signalSet;
        sigemptyset(&signalSet);
        posix_spawnattr_setsigmask(&attributes, &signalSet);
        sigfillset(&signalSet);
        posix_spawnattr_setsigdefault(&attributes, &signalSet);
        posix_spawnattr_setflags(
            &attributes, POSIX_SPAWN_SETSID | POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF);

        posix_spawn_file_actions_init(&actions);
        posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
        posix_spawn_file_actions_addopen(&actions, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
        posix_spawn_file_actions_addclosefrom_np(&actions, STDERR_FILENO + 1);
        posix_spawn_file_actions_addchdir_np(&actions, workingFolder.c_str());
    }
    SpawnSetup(const SpawnSetup&) = delete;
    SpawnSetup& operator=(const SpawnSetup&) = delete;
    ~SpawnSetup()
    {
        posix_spawn_file_actions_destroy(&actions);
        posix_spawnattr_destroy(&attributes);
    }

    posix_spawnattr_t attributes{};
    posix_spawn_file_actions_t actions{};
};

Path homeOrRoot()
{
    const Path home = toPath(QDir::homePath());
    std::error_code error;
    return std::filesystem::is_directory(home, error) ? home : Path("/");
}

bool isFileName(const QString& text)
{
    return !text.contains(u'/') && !text.contains(QChar(u'\0'));
}

/// Whether the file begins like a program of some system: ELF, Mach-O (either byte order, or for several
/// processors), or PE.
bool isProgramOfAnySystem(const Path& program)
{
    std::array<char, 4> start{};
    std::ifstream(program, std::ios::binary).read(start.data(), start.size());
    const std::string_view magic(start.data(), start.size());
    return magic == "\177ELF" || magic == "\xFE\xED\xFA\xCE" || magic == "\xFE\xED\xFA\xCF"
        || magic == "\xCE\xFA\xED\xFE" || magic == "\xCF\xFA\xED\xFE" || magic == "\xCA\xFE\xBA\xBE"
        || magic.starts_with("MZ");
}

Failure failureOf(const Path& program, int errorNumber)
{
    using std::filesystem::perms;
    constexpr auto executable = perms::owner_exec | perms::group_exec | perms::others_exec;
    std::error_code error;
    const auto status = std::filesystem::status(program, error);

    if (errorNumber == ENOENT && exists(status))
        return {
            systemDomain, errorNumber, u"На компьютере нет программы, которая выполняет это приложение."_s};
    if (errorNumber == ENOENT)
        return {systemDomain, errorNumber, u"В приложении нет его программы."_s};
    if (errorNumber == EACCES && is_regular_file(status)
        && (status.permissions() & executable) == perms::none)
        return {systemDomain, errorNumber, u"Файл программы не помечен как исполняемый."_s};
    if (errorNumber == ENOEXEC && !isProgramOfAnySystem(program))
        return {systemDomain, errorNumber, u"Файл приложения не является программой."_s};
    return systemFailure(errorNumber);
}

void reapWhenEnded(pid_t child)
try {
    // A sleeping thread costs no processor time, and unlike a handler of SIGCHLD it leaves the children of Qt
    // and GLib alone.
    std::thread([child] {
        while (::waitpid(child, nullptr, 0) < 0 && errno == EINTR) { }
    }).detach();
} catch (const std::system_error&) {
    // Without a thread the system reaps it when the store has ended.
}

} // namespace

Result<void> openBundle(const Path& bundle)
{
    const auto info = readBundleInfo(bundle);
    if (!info)
        return tl::unexpected(systemFailure(ENOENT));

    const QString name = info->executable.isEmpty() ? toText(bundle.stem()) : info->executable;
    const Path program = bundle_layout::programs(std::filesystem::absolute(bundle)) / toPath(name);
    if (!isFileName(name))
        return tl::unexpected(failureOf({}, ENOENT));

    std::string argument = program.string();
    const std::array<char*, 2> arguments{argument.data(), nullptr};
    std::vector<std::string> variables = programEnvironment();
    std::vector<char*> environment;
    environment.reserve(variables.size() + 1);
    for (std::string& variable : variables)
        environment.push_back(variable.data());
    environment.push_back(nullptr);

    const SpawnSetup setup(homeOrRoot());
    pid_t child = 0;
    const int errorNumber = ::posix_spawn(
        &child, program.c_str(), &setup.actions, &setup.attributes, arguments.data(), environment.data());
    if (errorNumber != 0)
        return tl::unexpected(failureOf(program, errorNumber));
    reapWhenEnded(child);
    return {};
}
