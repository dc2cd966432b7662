#pragma once

#include "store/ObservableObject.h"

#include <utility>

/// A property whose every write, also of an equal value, is first announced by its owner and then stored.
template <class T>
class Published {
public:
    /// `owner` outlives the property.
    explicit Published(ObservableObject& owner, T initial = {}) : m_owner(owner), m_value(std::move(initial))
    {
    }

    const T& operator*() const { return m_value; }
    const T* operator->() const { return &m_value; }

    void set(T value)
    {
        m_owner.announceChange();
        m_value = std::move(value);
    }

    /// Adds an element to a set.
    template <class Element>
    void insert(const Element& element)
    {
        m_owner.announceChange();
        m_value.insert(element);
    }

    /// Takes an element out of a set.
    template <class Element>
    void remove(const Element& element)
    {
        m_owner.announceChange();
        m_value.erase(element);
    }

    void increment()
    {
        m_owner.announceChange();
        ++m_value;
    }

private:
    ObservableObject& m_owner;
    T m_value;
};
