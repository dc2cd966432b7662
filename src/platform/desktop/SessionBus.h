#pragma once

/// Names the session bus, and the address that stands for no bus at all.
inline constexpr const char* addressVariable = "DBUS_SESSION_BUS_ADDRESS";
inline constexpr const char* noAddress = "disabled:";

/// Keeps Qt and GIO from starting a session bus of their own where there is none. Call before either asks
/// for one; programs that are opened do not inherit it.
void startNoSessionBus();
