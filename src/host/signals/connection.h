#pragma once

#include <host/signals/signal_impl.h>

#include <utility>

namespace ryk {

/// A handle on one slot of a signal. Copies share the slot; destroying one leaves the slot connected.
///
/// A connection may outlive its signal, and is dead from then on. Threads: several may disconnect a slot,
/// each through a connection of its own; one object belongs to one thread at a time.
class Connection
{
public:
    Connection() = default;
    explicit Connection(Ozy::SmartPointer<signal_details::SlotHolderBase> slot) noexcept
        : m_slot(std::move(slot))
    {
    }

    /// From its return on, no call of the slot begins. Its functor is destroyed at once, or when the calls
    /// that run meanwhile have ended. Does nothing on a dead connection.
    void disconnect() const
    {
        // A copy: the functor that dies may own this very object.
        if (const auto slot = m_slot)
            slot->disconnect();
    }

    bool isConnected() const { return m_slot && m_slot->isConnected(); }

private:
    Ozy::SmartPointer<signal_details::SlotHolderBase> m_slot;
};

/// A connection that ends with the object: what a class keeps of the signals that it listens to.
class ScopedConnection
{
public:
    ScopedConnection() = default;
    ScopedConnection(Connection connection) noexcept : m_connection(std::move(connection)) {}
    ScopedConnection(ScopedConnection&& other) noexcept : m_connection(std::exchange(other.m_connection, {}))
    {
    }
    ScopedConnection& operator=(ScopedConnection&& other)
    {
        Connection taken = std::exchange(other.m_connection, {});
        std::exchange(m_connection, std::move(taken)).disconnect();
        return *this;
    }
    ~ScopedConnection() { m_connection.disconnect(); }

    void disconnect() { m_connection.disconnect(); }
    bool isConnected() const { return m_connection.isConnected(); }

private:
    Connection m_connection;
};

/// The same as a fixed part of an object that listens, without a record of its own elsewhere: it stays where
/// it is, and is given one connection after another.
class InlineConnection
{
public:
    InlineConnection() = default;
    InlineConnection(const InlineConnection&) = delete;
    InlineConnection& operator=(const InlineConnection&) = delete;
    InlineConnection& operator=(Connection connection)
    {
        m_connection = std::move(connection);
        return *this;
    }

    void disconnect() { m_connection.disconnect(); }
    bool isConnected() const { return m_connection.isConnected(); }

private:
    ScopedConnection m_connection;
};

} // namespace ryk
