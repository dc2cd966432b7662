#pragma once

/// What the roles of the machine have in common: they are referred to, never copied.
class Role {
public:
    Role() = default;
    Role(const Role&) = delete;
    Role& operator=(const Role&) = delete;
    virtual ~Role() = default;
};
