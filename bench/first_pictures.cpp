// first_pictures: watches the windows on an X display from outside. Prints a line for each process of which a
// window shows a picture of more than one colour for the first time: its number, and the nanoseconds of the
// steady clock. An empty line says that it watches.

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <set>

#include <xcb/damage.h>
#include <xcb/xcb.h>

namespace {

template <class T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

template <class T>
Reply<T> owned(T* reply)
{
    return {reply, &std::free};
}

class Display {
public:
    Display() : m_connection(xcb_connect(nullptr, nullptr))
    {
        if (xcb_connection_has_error(m_connection)) {
            std::fputs("first_pictures: there is no X display.\n", stderr);
            std::exit(2);
        }
        const auto* const damage = xcb_get_extension_data(m_connection, &xcb_damage_id);
        m_damageEvent = damage->first_event + XCB_DAMAGE_NOTIFY;
        owned(xcb_damage_query_version_reply(
            m_connection, xcb_damage_query_version(m_connection, 1, 1), nullptr));
        const char name[] = "_NET_WM_PID";
        const auto asked = xcb_intern_atom(m_connection, 0, sizeof name - 1, name);
        m_processAtom = owned(xcb_intern_atom_reply(m_connection, asked, nullptr))->atom;

        const xcb_window_t root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
        const uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
        xcb_change_window_attributes(m_connection, root, XCB_CW_EVENT_MASK, &events);
        owned(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    }

    void watch()
    {
        while (const auto event = owned(xcb_wait_for_event(m_connection))) {
            const std::chrono::nanoseconds now = std::chrono::steady_clock::now().time_since_epoch();
            const int type = event->response_type & 0x7f;
            if (type == XCB_CREATE_NOTIFY) {
                const auto& created = reinterpret_cast<const xcb_create_notify_event_t&>(*event);
                xcb_damage_create(m_connection, xcb_generate_id(m_connection), created.window,
                    XCB_DAMAGE_REPORT_LEVEL_NON_EMPTY);
                xcb_flush(m_connection);
            } else if (type == m_damageEvent) {
                const auto& damage = reinterpret_cast<const xcb_damage_notify_event_t&>(*event);
                xcb_damage_subtract(m_connection, damage.damage, XCB_NONE, XCB_NONE);
                const uint32_t process = processOf(damage.drawable);
                if (process != 0 && showsPicture(damage.drawable) && m_seen.insert(process).second)
                    std::printf("%u %lld\n", process, static_cast<long long>(now.count()));
            }
        }
    }

private:
    /// 0 for the windows of a window manager.
    uint32_t processOf(xcb_window_t window)
    {
        const auto asked = xcb_get_property(m_connection, 0, window, m_processAtom, XCB_ATOM_CARDINAL, 0, 1);
        const auto reply = owned(xcb_get_property_reply(m_connection, asked, nullptr));
        if (!reply || xcb_get_property_value_length(reply.get()) < 4)
            return 0;
        return *static_cast<const uint32_t*>(xcb_get_property_value(reply.get()));
    }

    /// Fails for a window that is not on the screen.
    bool showsPicture(xcb_window_t window)
    {
        const auto size =
            owned(xcb_get_geometry_reply(m_connection, xcb_get_geometry(m_connection, window), nullptr));
        if (!size)
            return false;
        const auto asked = xcb_get_image(
            m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, window, 0, 0, size->width, size->height, ~0U);
        const auto image = owned(xcb_get_image_reply(m_connection, asked, nullptr));
        if (!image)
            return false;
        const auto* const bytes = xcb_get_image_data(image.get());
        const auto length = std::size_t(xcb_get_image_data_length(image.get()));
        return length > 4 && std::memcmp(bytes, bytes + 4, length - 4) != 0;
    }

    xcb_connection_t* m_connection;
    int m_damageEvent = 0;
    xcb_atom_t m_processAtom = XCB_ATOM_NONE;
    std::set<uint32_t> m_seen;
};

} // namespace

int main()
{
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    Display display;
    std::puts("");
    display.watch();
}
