#pragma once

#include <QSortFilterProxyModel>
#include <QStringList>

#include <functional>
#include <memory>

/// A proxy of the library, and Qt's own set up to show the same: it tells whose doing a difference is.
struct WalkedProxies
{
    using Make = std::function<std::unique_ptr<QSortFilterProxyModel>()>;

    Make ours;
    Make plain;
    /// Brings a proxy up to date that does not follow changes by itself.
    std::function<void(QSortFilterProxyModel&)> refresh = [](QSortFilterProxyModel&) {};
};

QStringList walkedProxyNames();
WalkedProxies walkedProxies(const QString& name);
