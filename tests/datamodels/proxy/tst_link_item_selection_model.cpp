#include <datamodels/proxy/link_item_selection_model.h>

#include <support/log_capture.h>
#include <support/scripted_tree.h>
#include <support/signal_log.h>

#include <QSortFilterProxyModel>
#include <QtTest>

using qelm::datamodels::proxy::LinkItemSelectionModel;

namespace {

/// The texts of the selected rows, in the order of the rows.
QStringList selected(const QItemSelectionModel& selection)
{
    QModelIndexList indexes = selection.selectedIndexes();
    std::sort(indexes.begin(), indexes.end());
    QStringList texts;
    for (const QModelIndex& index : indexes)
        texts << index.data().toString();
    return texts;
}

QString current(const QItemSelectionModel& selection)
{
    return selection.currentIndex().data().toString();
}

} // namespace

/// A list under a filter that hides "fir"; the link selects on the filter, the linked selection on the list.
class tst_LinkItemSelectionModel : public QObject
{
    Q_OBJECT

    struct Chain
    {
        ScriptedTree list{{"ash", "elm", "fir", "oak"}};
        QSortFilterProxyModel filter;
        QItemSelectionModel linked{&list};
        std::unique_ptr<LinkItemSelectionModel> link;

        Chain()
        {
            filter.setFilterRegularExpression("^(?!fir)");
            filter.setSourceModel(&list);
            link = std::make_unique<LinkItemSelectionModel>(&filter, &linked);
        }

        QModelIndex onFilter(const QString& text) const { return filter.mapFromSource(list.find(text)); }
        QItemSelection onFilter(const QString& first, const QString& last) const
        {
            return {onFilter(first), onFilter(last)};
        }
        QItemSelection onList(const QString& first, const QString& last) const
        {
            return {list.find(first), list.find(last)};
        }
    };

private Q_SLOTS:
    void whatIsSelectedBeforeTheLinkIsTakenOver()
    {
        ScriptedTree list({"ash", "elm"});
        QItemSelectionModel linked(&list);
        linked.select(list.find("elm"), QItemSelectionModel::Select);

        LinkItemSelectionModel link(&list, &linked);

        QCOMPARE(selected(link), QStringList{"elm"});
        QCOMPARE(link.linkedItemSelectionModel(), &linked);
        QVERIFY(link.isCurrentSyncEnabled());
    }

    void aSelectionGoesToTheLinkedSide()
    {
        Chain chain;

        chain.link->select(chain.onFilter("elm", "oak"), QItemSelectionModel::ClearAndSelect);

        QCOMPARE(selected(*chain.link), (QStringList{"elm", "oak"}));
        QCOMPARE(selected(chain.linked), (QStringList{"elm", "oak"}));
    }

    void aSelectionIsToldOnceOnEachSide()
    {
        Chain chain;
        SignalLog log;
        log.add(*chain.link, &QItemSelectionModel::selectionChanged, "left")
            .add(chain.linked, &QItemSelectionModel::selectionChanged, "right");

        chain.link->select(chain.onFilter("ash", "ash"), QItemSelectionModel::Select);

        const QStringList lines = log.take();
        QCOMPARE(lines.size(), 2);
        QVERIFY(lines[0].startsWith("left: selectionChanged"));
        QVERIFY(lines[1].startsWith("right: selectionChanged"));
    }

    void anIndexGoesToTheLinkedSideWithItsFlags()
    {
        Chain chain;
        chain.link->select(chain.onFilter("ash"), QItemSelectionModel::Select);

        chain.link->select(chain.onFilter("elm"), QItemSelectionModel::Toggle);
        chain.link->select(chain.onFilter("ash"), QItemSelectionModel::Toggle);

        QCOMPARE(selected(*chain.link), QStringList{"elm"});
        QCOMPARE(selected(chain.linked), QStringList{"elm"});
    }

    void aSelectionOnTheLinkedSideComesBack()
    {
        Chain chain;

        chain.linked.select(chain.onList("elm", "oak"), QItemSelectionModel::Select);

        QCOMPARE(selected(*chain.link), (QStringList{"elm", "oak"}));
    }

    void whatComesFromTheLinkedSideIsDeselectedFirst()
    {
        Chain chain;
        chain.linked.select(chain.onList("ash", "ash"), QItemSelectionModel::Select);
        QStringList states;
        connect(chain.link.get(), &QItemSelectionModel::selectionChanged, this,
                [&] { states << selected(*chain.link).join(','); });

        chain.linked.select(chain.onList("oak", "oak"), QItemSelectionModel::ClearAndSelect);

        QCOMPARE(states, (QStringList{"", "oak"}));
    }

    void theCurrentRowGoesBothWays()
    {
        Chain chain;

        chain.link->setCurrentIndex(chain.onFilter("elm"), QItemSelectionModel::NoUpdate);
        QCOMPARE(current(chain.linked), QString("elm"));

        chain.linked.setCurrentIndex(chain.list.find("oak"), QItemSelectionModel::NoUpdate);
        QCOMPARE(current(*chain.link), QString("oak"));
        QCOMPARE(selected(*chain.link), QStringList());
    }

    void aHiddenRowLeavesTheCurrentRowOfTheOtherSideAlone()
    {
        Chain chain;
        chain.linked.setCurrentIndex(chain.list.find("elm"), QItemSelectionModel::NoUpdate);

        chain.linked.setCurrentIndex(chain.list.find("fir"), QItemSelectionModel::ClearAndSelect);

        QCOMPARE(current(*chain.link), QString("elm"));
        QCOMPARE(selected(*chain.link), QStringList());
    }

    void withoutSyncOfTheCurrentRowSelectionsStillTravel()
    {
        Chain chain;
        chain.link->setCurrentSyncEnabled(false);

        chain.link->setCurrentIndex(chain.onFilter("elm"), QItemSelectionModel::ClearAndSelect);
        chain.linked.setCurrentIndex(chain.list.find("oak"), QItemSelectionModel::Select);

        QCOMPARE(current(*chain.link), QString("elm"));
        QCOMPARE(current(chain.linked), QString("oak"));
        QCOMPARE(selected(*chain.link), (QStringList{"elm", "oak"}));
        QCOMPARE(selected(chain.linked), (QStringList{"elm", "oak"}));
    }

    void anInvalidIndexClearsTheLinkedSideWhateverTheFlags()
    {
        Chain chain;
        chain.link->select(chain.onFilter("elm"), QItemSelectionModel::Select);

        chain.link->select(QModelIndex(), QItemSelectionModel::NoUpdate);

        QCOMPARE(selected(chain.linked), QStringList());
        QCOMPARE(selected(*chain.link), QStringList());
    }

    void aLayoutChangeShrinksBothSidesToTheCurrentRow()
    {
        Chain chain;
        chain.link->select(chain.onFilter("ash", "oak"), QItemSelectionModel::Select);
        chain.link->setCurrentIndex(chain.onFilter("elm"), QItemSelectionModel::NoUpdate);

        chain.filter.sort(0, Qt::DescendingOrder);

        QCOMPARE(selected(*chain.link), QStringList{"elm"});
        QCOMPARE(selected(chain.linked), QStringList{"elm"});
        QCOMPARE(current(*chain.link), QString("elm"));
    }

    void aLayoutChangeWithoutACurrentRowClearsBothSides()
    {
        Chain chain;
        chain.link->select(chain.onFilter("ash", "oak"), QItemSelectionModel::Select);

        chain.filter.sort(0, Qt::DescendingOrder);

        QCOMPARE(selected(*chain.link), QStringList());
        QCOMPARE(selected(chain.linked), QStringList());
    }

    void aLayoutChangeIsToldOnTheLeftStepByStep()
    {
        Chain chain;
        chain.link->select(chain.onFilter("ash", "oak"), QItemSelectionModel::Select);
        chain.link->setCurrentIndex(chain.onFilter("elm"), QItemSelectionModel::NoUpdate);
        QStringList told;
        connect(chain.link.get(), &QItemSelectionModel::selectionChanged, this,
                [&] { told << "selected " + selected(*chain.link).join(','); });
        connect(chain.link.get(), &QItemSelectionModel::currentChanged, this,
                [&] { told << "current " + current(*chain.link); });

        Q_EMIT chain.filter.layoutChanged();

        QCOMPARE(told, (QStringList{"selected ", "selected ash,elm,oak", "selected ", "current ", "selected elm",
                                    "current elm"}));
    }

    void whileASelectionGoesOutAnIndexIsIgnored()
    {
        Chain chain;
        connect(&chain.linked, &QItemSelectionModel::selectionChanged, this,
                [&] { chain.link->select(chain.onFilter("oak"), QItemSelectionModel::Select); });

        chain.link->select(chain.onFilter("ash", "ash"), QItemSelectionModel::Select);

        QCOMPARE(selected(*chain.link), QStringList{"ash"});
        QCOMPARE(selected(chain.linked), QStringList{"ash"});
    }

    void rowsThatAppearTakeTheLinkedSelectionOver()
    {
        Chain chain;
        chain.linked.select(chain.onList("elm", "fir"), QItemSelectionModel::Select);
        QCOMPARE(selected(*chain.link), QStringList{"elm"});

        chain.filter.setFilterRegularExpression("");

        QCOMPARE(selected(*chain.link), (QStringList{"elm", "fir"}));
    }

    void columnsThatAppearTakeTheLinkedSelectionOver()
    {
        Chain chain;
        chain.linked.select(chain.list.find("elm"), QItemSelectionModel::Select);
        static_cast<QItemSelectionModel&>(*chain.link).QItemSelectionModel::select(QItemSelection(),
                                                                                 QItemSelectionModel::Clear);

        Q_EMIT chain.filter.columnsInserted({}, 1, 1, {});

        QCOMPARE(selected(*chain.link), QStringList{"elm"});
    }

    void aResetOfTheLeftModelClearsTheLinkedSelection()
    {
        Chain chain;
        chain.linked.select(chain.list.find("elm"), QItemSelectionModel::Select);

        chain.filter.setFilterRole(Qt::DisplayRole);
        QMetaObject::invokeMethod(&chain.filter, "modelAboutToBeReset", Qt::DirectConnection);
        QMetaObject::invokeMethod(&chain.filter, "modelReset", Qt::DirectConnection);

        QCOMPARE(selected(chain.linked), QStringList());
        QCOMPARE(selected(*chain.link), QStringList());
    }

    void unlinkingClearsThisSideOnly()
    {
        Chain chain;
        chain.link->select(chain.onFilter("elm"), QItemSelectionModel::Select);

        chain.link->setLinkedItemSelectionModel(nullptr);
        QCOMPARE(selected(*chain.link), QStringList());
        QCOMPARE(selected(chain.linked), QStringList{"elm"});

        chain.linked.select(chain.list.find("oak"), QItemSelectionModel::Select);
        QCOMPARE(selected(*chain.link), QStringList());
    }

    void unlinkingSaysNothing()
    {
        Chain chain;
        SignalLog log;
        log.add(*chain.link, &LinkItemSelectionModel::linkedItemSelectionModelChanged);
        LogCapture messages;

        chain.link->setLinkedItemSelectionModel(nullptr);

        QCOMPARE(log.take(), QStringList());
        QCOMPARE(messages.assertions(), QStringList());
    }

    void onceUnlinkedTheLeftModelIsNotHeardEither()
    {
        Chain chain;
        chain.link->setLinkedItemSelectionModel(nullptr);
        LogCapture messages;

        chain.filter.setFilterRegularExpression("");

        QCOMPARE(messages.assertions(), QStringList());
    }

    void aLinkedSelectionWithoutAModelIsNotLinked()
    {
        Chain chain;
        QItemSelectionModel empty;
        chain.link->select(chain.onFilter("elm"), QItemSelectionModel::Select);

        chain.link->setLinkedItemSelectionModel(&empty);

        QCOMPARE(selected(*chain.link), QStringList());
        QCOMPARE(chain.link->linkedItemSelectionModel(), &empty);
    }

    void anotherModelOfTheBaseIsNotTheLeftOne()
    {
        Chain chain;
        ScriptedTree other({"pine"});
        chain.link->setModel(&other);
        chain.link->select(other.find("pine"), QItemSelectionModel::Select);
        QCOMPARE(selected(*chain.link), QStringList{"pine"});
        QVERIFY(!chain.linked.hasSelection());

        chain.link->setModel(&chain.filter);
        chain.linked.select(chain.list.find("elm"), QItemSelectionModel::Select);

        QCOMPARE(selected(*chain.link), QStringList{"elm"});
    }

    void itsSlotsFailTheirAssertionsWhileUnlinked()
    {
        LinkItemSelectionModel link;
        LogCapture log;

        QMetaObject::invokeMethod(&link, "modelReset");
        QMetaObject::invokeMethod(&link, "sourceSelectionChanged", Q_ARG(QItemSelection, {}), Q_ARG(QItemSelection, {}));
        QMetaObject::invokeMethod(&link, "sourceCurrentChanged", Q_ARG(QModelIndex, {}));
        QMetaObject::invokeMethod(&link, "slotCurrentChanged", Q_ARG(QModelIndex, {}));

        const QString text = "m_indexMapper (qelm::datamodels::proxy::LinkItemSelectionModel::%1: unexpected state)";
        QCOMPARE(log.assertions(), (QStringList{text.arg("rebuild"), text.arg("sourceSelectionChanged"),
                                                text.arg("sourceCurrentChanged"), text.arg("slotCurrentChanged")}));
    }

    void rowsOfAnotherModelAreNotSelected()
    {
        Chain chain;
        ScriptedTree other({"pine"});
        const QModelIndex pine = other.find("pine");

        chain.link->select(pine, QItemSelectionModel::Select);
        chain.link->select(QItemSelection(pine, pine), QItemSelectionModel::Select);

        QVERIFY(!chain.link->hasSelection());
        QVERIFY(!chain.linked.hasSelection());
    }

    void anotherLinkedSelectionIsTakenOver()
    {
        Chain chain;
        QItemSelectionModel other(&chain.list);
        other.select(chain.list.find("oak"), QItemSelectionModel::Select);

        chain.link->setLinkedItemSelectionModel(&other);
        QCOMPARE(selected(*chain.link), QStringList{"oak"});

        chain.linked.select(chain.list.find("ash"), QItemSelectionModel::Select);
        QCOMPARE(selected(*chain.link), QStringList{"oak"});
    }

    void anUnlinkedOneSelectsOnItsOwnSideAndFailsAnAssertion()
    {
        ScriptedTree list({"ash", "elm"});
        LinkItemSelectionModel link;
        link.setModel(&list);
        LogCapture log;

        link.select(QItemSelection(list.find("elm"), list.find("elm")), QItemSelectionModel::Select);

        QCOMPARE(selected(link), QStringList{"elm"});
        QCOMPARE(log.assertions(), QStringList{"m_indexMapper (qelm::datamodels::proxy::LinkItemSelectionModel::select: "
                                               "unexpected state)"});
    }

    void anUnlinkedOneSelectsAnIndexWithoutAWord()
    {
        ScriptedTree list({"ash", "elm"});
        LinkItemSelectionModel link;
        link.setModel(&list);
        LogCapture log;

        link.select(list.find("elm"), QItemSelectionModel::Select);

        QCOMPARE(selected(link), QStringList{"elm"});
        QCOMPARE(log.assertions(), QStringList());
    }

    void withoutAModelFromTheConstructorItNeverLinks()
    {
        ScriptedTree list({"ash", "elm"});
        QItemSelectionModel linked(&list);
        linked.select(list.find("elm"), QItemSelectionModel::Select);
        LinkItemSelectionModel link;
        link.setModel(&list);

        link.setLinkedItemSelectionModel(&linked);

        QCOMPARE(selected(link), QStringList());
    }

    void aLinkedSelectionThatDiesEndsTheForwarding()
    {
        ScriptedTree list({"ash", "elm"});
        auto linked = std::make_unique<QItemSelectionModel>(&list);
        LinkItemSelectionModel link(&list, linked.get());

        linked.reset();
        link.setCurrentIndex(list.find("elm"), QItemSelectionModel::ClearAndSelect);
        link.select(QItemSelection(list.find("ash"), list.find("elm")), QItemSelectionModel::Select);

        QCOMPARE(selected(link), (QStringList{"ash", "elm"}));
        QCOMPARE(link.linkedItemSelectionModel(), nullptr);
    }

    void aSourceThatDiesLeavesNothingSelected()
    {
        auto list = std::make_unique<ScriptedTree>(QStringList{"ash", "elm"});
        QItemSelectionModel linked(list.get(), nullptr);
        QSortFilterProxyModel filter;
        filter.setSourceModel(list.get());
        LinkItemSelectionModel link(&filter, &linked);
        link.select(filter.index(0, 0), QItemSelectionModel::Select);

        list.reset();
        link.select(QModelIndex(), QItemSelectionModel::Select);

        QCOMPARE(selected(link), QStringList());
        QCOMPARE(selected(linked), QStringList());
    }

    void aFilterThatDiesEndsTheForwarding()
    {
        ScriptedTree list({"ash", "elm"});
        QItemSelectionModel linked(&list);
        auto filter = std::make_unique<QSortFilterProxyModel>();
        filter->setSourceModel(&list);
        LinkItemSelectionModel link(filter.get(), &linked);

        filter.reset();
        linked.setCurrentIndex(list.find("elm"), QItemSelectionModel::ClearAndSelect);

        QCOMPARE(selected(linked), QStringList{"elm"});
        QVERIFY(!link.currentIndex().isValid());
    }
};

QTEST_GUILESS_MAIN(tst_LinkItemSelectionModel)
#include "tst_link_item_selection_model.moc"
