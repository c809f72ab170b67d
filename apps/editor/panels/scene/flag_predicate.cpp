#include "flag_predicate.h"

namespace editor {

void FlagPredicate::setOn(bool on)
{
    if (m_isOn == on)
        return;
    m_isOn = on;
    Q_EMIT onChanged();
    Q_EMIT changed();
}

} // namespace editor
