#pragma once

#include <dlfcn.h>

/// A shared library that is loaded when this is made, not with the program: for those whose loading shows in
/// the time until the window appears. It stays loaded. What it is linked to by hand is told to no tool, so
/// packages name it themselves.
class LateLibrary {
public:
    /// `name` is the library's soname.
    explicit LateLibrary(const char* name) : m_handle(::dlopen(name, RTLD_LAZY | RTLD_LOCAL)) { }

    bool isLoaded() const { return m_handle != nullptr; }
    /// Null when the library is not loaded, or has no such function.
    template <class Function>
    Function function(const char* name) const
    {
        return m_handle ? reinterpret_cast<Function>(::dlsym(m_handle, name)) : nullptr;
    }

private:
    void* m_handle;
};

// NOLINTBEGIN(bugprone-macro-parentheses): it declares a member of the function's own name.
/// A member that stands for a function of the member `library`.
#define PLOVI_LATE_FUNCTION(name) decltype(&::name) name = library.function<decltype(&::name)>(#name)
// NOLINTEND(bugprone-macro-parentheses)
