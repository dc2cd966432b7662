// first_paint SECONDS COMMAND…: starts a program with a window on an X display and watches it from outside.
// Prints the milliseconds until its first window shows a picture of more than one colour; once the program
// has come to rest, its milliseconds of processor time and its resident memory in KiB; then its milliseconds
// of processor time and its context switches in so many SECONDS of rest. Ends the program.

#include <sys/wait.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <thread>

#include <csignal>
#include <unistd.h>
#include <xcb/damage.h>
#include <xcb/xcb.h>

namespace {

using Clock = std::chrono::steady_clock;
using namespace std::chrono_literals;

template <class T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

double millisecondsSince(Clock::time_point start)
{
    return std::chrono::duration<double, std::milli>(Clock::now() - start).count();
}

class Display {
public:
    Display() : m_connection(xcb_connect(nullptr, nullptr))
    {
        if (xcb_connection_has_error(m_connection)) {
            std::fputs("first_paint: there is no X display.\n", stderr);
            std::exit(2);
        }
        const auto* const damage = xcb_get_extension_data(m_connection, &xcb_damage_id);
        m_damageEvent = damage->first_event + XCB_DAMAGE_NOTIFY;
        std::free(xcb_damage_query_version_reply(
            m_connection, xcb_damage_query_version(m_connection, 1, 1), nullptr));

        const char name[] = "_NET_WM_PID";
        const Reply<xcb_intern_atom_reply_t> atom{
            xcb_intern_atom_reply(
                m_connection, xcb_intern_atom(m_connection, 0, sizeof name - 1, name), nullptr),
            &std::free};
        m_processAtom = atom->atom;

        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
        const uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection, root, XCB_CW_EVENT_MASK, &events);
        sync();
    }

    /// Waits until a window of `process` shows something, and returns the milliseconds since `start`.
    double waitForPicture(pid_t process, Clock::time_point start)
    {
        while (const Reply<xcb_generic_event_t> event{xcb_wait_for_event(m_connection), &std::free}) {
            const double now = millisecondsSince(start);
            const int type = event->response_type & 0x7f;
            if (type == XCB_CREATE_NOTIFY) {
                watch(reinterpret_cast<const xcb_create_notify_event_t&>(*event).window);
            } else if (type == m_damageEvent) {
                const auto& damage = reinterpret_cast<const xcb_damage_notify_event_t&>(*event);
                xcb_damage_subtract(m_connection, damage.damage, XCB_NONE, XCB_NONE);
                if (processOf(damage.drawable) == process && showsPicture(damage.drawable))
                    return now;
            }
        }
        return -1;
    }

private:
    void sync()
    {
        std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    }

    void watch(xcb_window_t window)
    {
        xcb_damage_create(
            m_connection, xcb_generate_id(m_connection), window, XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
        xcb_flush(m_connection);
    }

    pid_t processOf(xcb_window_t window)
    {
        const auto asked = xcb_get_property(m_connection, 0, window, m_processAtom, XCB_ATOM_CARDINAL, 0, 1);
        const Reply<xcb_get_property_reply_t> reply{
            xcb_get_property_reply(m_connection, asked, nullptr), &std::free};
        if (!reply || xcb_get_property_value_length(reply.get()) < 4)
            return 0;
        return *static_cast<const pid_t*>(xcb_get_property_value(reply.get()));
    }

    /// Fails for a window that is not on the screen.
    bool showsPicture(xcb_window_t window)
    {
        const Reply<xcb_get_geometry_reply_t> size{
            xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, window), nullptr),
            &std::free};
        if (!size)
            return false;
        const auto asked = xcb_get_image(
            m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, 0, size->width, size->height, ~0U);
        const Reply<xcb_get_image_reply_t> image{
            xcb_get_image_reply(m_connection, asked, nullptr), &std::free};
        if (!image)
            return false;
        const auto* const bytes = xcb_get_image_data(image.get());
        const auto length = std::size_t(xcb_get_image_data_length(image.get()));
        return length > 4 && std::memcmp(bytes, bytes + 4, length - 4) != 0;
    }

    xcb_connection_t* m_connection;
    int m_damageEvent = 0;
    xcb_atom_t m_processAtom = XCB_ATOM_NONE;
};

double processorTime(pid_t process)
{
    clockid_t clock{};
    timespec time{};
    clock_getcpuclockid(process, &clock);
    clock_gettime(clock, &time);
    return double(time.tv_sec) * 1e3 + double(time.tv_nsec) / 1e6;
}

/// The sum of the numbers behind `key` in a status file of the system.
long number(const std::string& file, const std::string& key)
{
    std::ifstream status(file);
    long sum = 0;
    for (std::string line; std::getline(status, line);) {
        if (const auto at = line.find(key); at != std::string::npos)
            sum += std::stol(line.substr(at + key.size()));
    }
    return sum;
}

long switches(pid_t process)
{
    long sum = 0;
    for (const auto& task : std::filesystem::directory_iterator("/proc/" + std::to_string(process) + "/task"))
        sum += number(task.path() / "status", "voluntary_ctxt_switches:\t");
    return sum;
}

void waitForRest(pid_t process)
{
    double before = -1;
    for (int still = 0; still < 6; std::this_thread::sleep_for(50ms)) {
        const double now = processorTime(process);
        still = now == before ? still + 1 : 0;
        before = now;
    }
}

} // namespace

int main(int argc, char* argv[])
{
    if (argc < 3)
        return 2;
    Display display;
    const auto start = Clock::now();
    const pid_t child = fork();
    if (child == 0) {
        execvp(argv[2], argv + 2);
        _exit(127);
    }

    const double painted = display.waitForPicture(child, start);
    waitForRest(child);
    const double used = processorTime(child);
    const long resident = number("/proc/" + std::to_string(child) + "/status", "VmRSS:");
    const long before = switches(child);
    std::this_thread::sleep_for(std::chrono::duration<double>(std::atof(argv[1])));
    std::printf("%.2f %.2f %ld %.2f %ld\n", painted, used, resident, processorTime(child) - used,
        switches(child) - before);

    kill(child, SIGTERM);
    waitpid(child, nullptr, 0);
}
