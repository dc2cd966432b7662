#pragma once

#include <QObject>

#include <thread>

/// An object that announces every change of itself before the change happens. Belongs to the thread that made
/// it.
class ObservableObject : public QObject {
    Q_OBJECT

public:
    /// Sends `objectWillChange`. A call from another thread ends the program: it would be a race.
    void announceChange();

Q_SIGNALS:
    /// A property is about to be written. Listeners do not read the object here, they plan to.
    void objectWillChange();

private:
    std::thread::id m_thread = std::this_thread::get_id();
};
