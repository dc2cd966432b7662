#pragma once

#include <chrono>

/// Names the session bus, and the address that stands for no bus at all.
inline constexpr const char* addressVariable = "DBUS_SESSION_BUS_ADDRESS";
inline constexpr const char* noAddress = "disabled:";

/// How the session bus is to be had.
enum class SessionBus {
    /// Nothing listens.
    Absent,
    /// Something takes connections but does not answer: whoever talks to it waits without end.
    Silent,
    Answers,
};

/// Speaks to the session bus (D-Bus, over a local socket) without joining it, for at most `patience`. A bus
/// that is reached in another way counts as answering. Any thread.
SessionBus probeSessionBus(std::chrono::milliseconds patience);
