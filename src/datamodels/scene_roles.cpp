#include <datamodels/scene_roles.h>

QHash<int, QByteArray> SceneRoles::namesBeside(QHash<int, QByteArray> others)
{
    static const QHash<int, QByteArray> names{
        {Type, "type"},         {Count, "count"},     {Object, "object"},
        {Expanded, "expanded"}, {Enabled, "enabled"}, {RowButtonsModel, "rowButtonsModel"},
        {Hover, "hoverRole"},   {Modified, "modified"},
    };
    for (auto name = names.begin(); name != names.end(); ++name) {
        if (!others.contains(name.key()))
            others.insert(name.key(), name.value());
    }
    return others;
}
