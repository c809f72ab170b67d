#pragma once

#include <QObject>

#include <utility>

namespace qelm {

/// A connection between `QObject`s that ends with this object.
class QtScopedConnection
{
public:
    QtScopedConnection() = default;
    QtScopedConnection(QMetaObject::Connection connection) : m_connection(std::move(connection)) {}
    QtScopedConnection(QtScopedConnection&& other) noexcept : m_connection(std::exchange(other.m_connection, {})) {}
    QtScopedConnection& operator=(QtScopedConnection&& other) noexcept
    {
        if (this != &other) {
            disconnect();
            m_connection = std::exchange(other.m_connection, {});
        }
        return *this;
    }
    ~QtScopedConnection() { disconnect(); }

    void disconnect() { QObject::disconnect(std::exchange(m_connection, {})); }
    bool isConnected() const { return static_cast<bool>(m_connection); }

private:
    QMetaObject::Connection m_connection;
};

} // namespace qelm
