#include <datamodels/method_proxy.h>

MethodProxy::MethodProxy(zarn::BoundProperty method, QObject* parent) : QObject(parent), m_method(std::move(method)) {}

MethodProxy::~MethodProxy() = default;

void MethodProxy::invoke()
{
    m_method.genericInvoke({}, 0, nullptr);
}
