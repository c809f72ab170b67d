#pragma once

#include <host/base/flags.h>
#include <host/base/host_export.h>
#include <host/base/strings.h>

#include <QtGlobal>

#include <cstdint>
#include <memory>

namespace Ozy::utils {

/// One step that can be run. What undoes an edit is a command that makes the opposite edit, recorded while the edit was
/// made; see `CommitChangesScope`.
class DATAMODELS_HOST_API Command
{
public:
    /// None are defined by this host; other hosts may have some.
    enum class Flag : std::uint32_t {};

    explicit Command(BasicOwningStringView<char> name, ryk::Flags<Flag> flags = {});
    virtual ~Command();
    Q_DISABLE_COPY_MOVE(Command)

    const BasicOwningStringView<char>& name() const { return m_name; }
    ryk::Flags<Flag> flags() const { return m_flags; }

    /// A copy, or null for a command that cannot be copied, as the base.
    virtual std::unique_ptr<Command> clone();
    /// Takes the effect of a later command into this one; false where they stay two, as in the base.
    virtual bool merge(Command& later);
    /// Makes the edit. False refuses it, with nothing changed.
    virtual bool execute() = 0;

private:
    BasicOwningStringView<char> m_name;
    ryk::Flags<Flag> m_flags;
};

} // namespace Ozy::utils
