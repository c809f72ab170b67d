#pragma once

#include <datamodels/datamodels_export.h>
#include <datamodels/scene/gap_vector.h>
#include <host/reflection/bound_property.h>
#include <host/reflection/object_observer.h>
#include <host/reflection/reflected_object.h>

#include <QString>
#include <QVariant>

#include <cstdint>
#include <memory>
#include <vector>

class SceneItemButtonsModel;
class SceneItemModel;

/// One row of a `SceneItemModel`: what it shows of its object, and the rows below it. Which rows those are is decided by
/// the nodes of `SceneItem::Object`, which walk the object's properties.
///
/// A row is enabled if its own object and all rows above are. A change runs down to the leafs, and each row is told of,
/// the deepest first, whether or not it makes a difference there. Owned by its parent, the first one by the model.
/// Thread: GUI only.
class DATAMODELS_API SceneItem
{
public:
    class Object;
    class PrivateCtor
    {
        friend class SceneItem;
        PrivateCtor() = default;
    };

    /// The item of the scene object, which has no row.
    SceneItem(zarn::ReflectedObject object, SceneItemModel& model);
    SceneItem(PrivateCtor, SceneItemModel& model, SceneItem* parent);
    ~SceneItem();
    Q_DISABLE_COPY_MOVE(SceneItem)

    /// The fixed name of the row's property if it has one, else "_objectName", else "<unnamed scene item>".
    QString name() const;
    /// "_objectIcon" without extension and without a leading "resources/maps/gui/", else "<unnamed type>".
    QString icon() const;
    /// "_typeName", else "<unknown type>".
    QString objectType() const;
    /// "_objectState", else 0. What the numbers mean is between the objects and the delegates.
    int state() const;
    /// A `zarn::ReflectedObject`.
    QVariant object() const;
    const zarn::ReflectedObject& reflectedObject() const;

    bool isEnabled() const { return m_parentEnabled && m_enabled; }
    bool isModified() const { return m_modified; }
    bool isExpanded() const { return m_expanded; }
    bool isHovered() const { return m_hovered; }
    /// Nobody is told.
    void setExpanded(bool expanded) { m_expanded = expanded; }
    void setHovered(bool hovered);

    const SceneItem* parent() const { return m_parent; }
    int childrenCount() const { return static_cast<int>(m_children.size()); }
    /// Null without children; throws `std::out_of_range` for an index past the end.
    const SceneItem* childAt(int index) const;
    /// -1 for what is not a child.
    int childIndex(const SceneItem* child) const
    {
        if (child->m_parent != this)
            return -1;
        if (child->m_row >= m_numberedRows)
            numberChildren();
        return child->m_row < m_numberedRows ? static_cast<int>(child->m_row) : -1;
    }
    int selfIndexInParent() const { return m_parent ? m_parent->childIndex(this) : -1; }
    /// This item or the first below it, in the order of the tree, that shows the object; null if there is none.
    SceneItem* findSceneItemByItsReflectedObject(const zarn::ReflectedObject& object);

    /// Null until the first button.
    SceneItemButtonsModel* iconButtonsModel() const { return m_buttonsModel.get(); }
    const Object& rootObject() const { return *m_rootObject; }
    /// The node in the parent item that made this one; there is none for the scene object.
    const Object& collectionObject() const { return *m_collectionObject; }

private:
    friend class SceneItemModel;

    /// Hears of the object on behalf of its row.
    class Watch final : public zarn::ObjectObserver
    {
    public:
        explicit Watch(SceneItem& item) : m_item(item) {}
        SceneItem& item() const { return m_item; }

        void propertyChanged(const zarn::BoundProperty& property, ryk::Flags<zarn::SetterFlag> setterFlags,
                             ryk::Flags<zarn::NotifyFlag> notifyFlags) override;
        void propertiesReset() override;

    private:
        SceneItem& m_item;
    };

    /// The properties that the row follows, as they were found when its state was read; null for those that are missing.
    struct Followed
    {
        const zarn::MetaProperty* isEnabled = nullptr;
        const zarn::MetaProperty* name = nullptr;
        const zarn::MetaProperty* icon = nullptr;
        const zarn::MetaProperty* state = nullptr;
        const zarn::MetaProperty* isModified = nullptr;
    };

    void init(zarn::ReflectedObject object, const zarn::BoundProperty& property, Object* collection);
    void initState(const zarn::ReflectedObject& object);
    void initModifiableState(const zarn::ReflectedObject& object);
    void onValueChanged(const zarn::BoundProperty& property, bool isTold);
    Object& insertChild(int index, zarn::ReflectedObject object, const zarn::BoundProperty& property, Object* collection);
    void eraseChild(int index);
    void pushEnabledDown();
    void setParentEnabled(bool enabled);
    void numberChildren() const;
    SceneItemButtonsModel& buttons();
    SceneItem* searchFor(const zarn::ReflectedObject& object);
    bool isBefore(const SceneItem& other) const;
    bool isWithin(const SceneItem& ancestor) const;
    std::vector<const SceneItem*> path() const;

    // First what is asked for of every index.
    SceneItem* m_parent = nullptr;
    mutable std::size_t m_row = SIZE_MAX;   // among the siblings, true where it is one of the numbered ones
    mutable std::size_t m_numberedRows = 0; // so many of the children, from the first one on
    GapVector<std::unique_ptr<SceneItem>> m_children;
    SceneItemModel& m_model;
    Followed m_followed;
    Watch m_watch{*this};
    QString m_name;
    bool m_expanded = true;
    bool m_hovered = false;
    bool m_enabled = true;
    bool m_parentEnabled = true;
    bool m_modified = false;
    std::unique_ptr<SceneItemButtonsModel> m_buttonsModel;
    std::unique_ptr<Object> m_rootObject;
    Object* m_collectionObject = nullptr;
};
