#pragma once

#include "ui/model/Request.h"

#include <QObject>

/// The one way up: every view of a window sends what its user asks for through this, and whoever owns it
/// answers.
class Requests : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

Q_SIGNALS:
    void sent(const Request& request);
};
