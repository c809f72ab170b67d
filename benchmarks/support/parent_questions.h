#pragma once

#include <support/comparison.h>
#include <support/sample_models.h>

#include <QAbstractItemModel>

#include <algorithm>
#include <memory>
#include <vector>

namespace bench {

/// Asks for the parents of the first children of all rows below `top`, in random order.
template <class Model>
Comparison::Timed parentQuestions(std::shared_ptr<Model> model, const QModelIndex& top)
{
    std::vector<QModelIndex> children;
    for (int row = 0; row < model->rowCount(top); ++row)
        children.push_back(model->index(0, 0, model->index(row, 0, top)));
    unsigned seed = 5;
    for (std::size_t i = children.size() - 1; i > 0; --i)
        std::swap(children[i], children[nextRandom(seed) % (i + 1)]);

    return [model, children = std::move(children)] {
        long long sum = 0;
        for (int round = 0; round < 20; ++round) {
            const std::size_t asked = std::min<std::size_t>(children.size(), 5000);
            for (std::size_t i = 0; i < asked; ++i)
                sum += model->parent(children[i]).row();
        }
        keep(sum);
    };
}

} // namespace bench
