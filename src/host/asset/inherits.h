#pragma once

namespace Ozy {

/// The base of a class that implements an interface of the editor: `class Panel : public Ozy::Inherits<IAssetModel>`.
///
/// A host that keeps a register of who implements what enters the class here. This one asks the language, by
/// `dynamic_cast`, and so needs none.
template <class Interface>
class Inherits : public Interface
{
};

} // namespace Ozy
