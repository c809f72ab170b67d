#pragma once

#include <datamodels/tree_structure_adapter.h>

/// The wrapper of one object: what the outliner shows for it, and the wrappers below it.
class DATAMODELS_API Ozy::TreeStructureAdapter::NodeInternal : public zarn::Object
{
public:
    /// Does not own its elements.
    class Children : public zarn::Object
    {
    public:
        explicit Children(bool stateless) : m_stateless(stateless) {}

        std::vector<NodeInternal*>& elements() { return m_elements; }
        const std::vector<NodeInternal*>& elements() const { return m_elements; }
        bool isStateless() const { return m_stateless; }

    private:
        std::vector<NodeInternal*> m_elements;
        bool m_stateless;
    };

    NodeInternal(zarn::ReflectedObject wrapped, NodeInternal* parent, TreeStructureAdapter& adapter, bool stateless,
                 DataDescription description);
    ~NodeInternal() override;

    const zarn::ReflectedObject& wrapped() const { return m_wrapped; }
    Children& children() { return m_children; }
    NodeInternal* parent() const { return m_parent; }
    const std::string& name() const { return m_description.name; }
    const std::string& icon() const { return m_description.icon; }
    bool isProducing() const { return m_description.producing; }
    bool isRoot() const { return !m_wrapped.isValid(); }

    void requestAdd() { m_adapter.notifyAddRequest(m_wrapped); }
    void requestRemoval() { m_adapter.notifyRemoveRequest(m_wrapped); }

private:
    zarn::ReflectedObject m_wrapped;
    Children m_children;
    NodeInternal* m_parent;
    TreeStructureAdapter& m_adapter;
    DataDescription m_description;
};
