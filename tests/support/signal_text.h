#pragma once

#include <QMetaMethod>
#include <QString>

/// The text of one emission in a `SignalLog`; `arguments` as `QMetaObject::activate` gets them.
QString signalText(const QMetaMethod& signal, void** arguments);
