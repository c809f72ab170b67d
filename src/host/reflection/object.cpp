#include <host/reflection/object.h>

#include <host/reflection/object_data.h>

namespace zarn {

Object::~Object()
{
    if (m_data)
        m_data->markDead();
}

} // namespace zarn
