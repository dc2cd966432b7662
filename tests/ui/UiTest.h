#pragma once

#include "support/FakePlatform.h"
#include "support/Samples.h"
#include "ui/StoreView.h"

#include <QAbstractButton>

#include <gmock/gmock.h>

/// The store in a window offscreen, over a bundle with icons. The tests press and type as a user does.
class UiTest : public testing::Test {
protected:
    UiTest();

    /// Opens the window on a bundle with these entries.
    StoreView& open(const Catalog& apps);
    StoreView& view() { return *m_view; }
    Store& store() { return *m_store; }
    /// Does what the event loop would do now: rebuilds that are planned, layouts, paints.
    static void settle();

    /// The button with that accessible name, of those in view from top to bottom the one at `index`.
    /// Throws where there is none, which fails the test that asked.
    QAbstractButton* button(const QString& name, int index = 0) const;
    void press(const QString& name, int index = 0);
    /// The text of the first shown widget of that class.
    template <class T>
    T* shown() const
    {
        for (T* widget : m_view->window()->findChildren<T*>()) {
            if (widget->isVisible())
                return widget;
        }
        return nullptr;
    }

    /// A picture file.
    static QByteArray png(int width, int height);
    /// `count` entries like Brisko, each with a number and an icon of its own.
    Catalog many(int count);

    FakePlatform platform;
    const StoreApp brisko = sample::brisko();
    const StoreApp kadrilo = sample::kadrilo();

private:
    std::unique_ptr<Store> m_store;
    std::unique_ptr<StoreView> m_view;
};
