#include "store/ObservableObject.h"

void ObservableObject::announceChange()
{
    if (std::this_thread::get_id() != m_thread)
        qFatal("An observable object was changed away from its thread.");
    Q_EMIT objectWillChange();
}
