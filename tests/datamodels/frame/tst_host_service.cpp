#include <datamodels/host_service.h>

#include <support/log_capture.h>

#include <QtTest>

namespace {

class IClock
{
public:
    virtual ~IClock() = default;
};
class Clock : public IClock
{
};

} // namespace

class tst_HostService : public QObject
{
    Q_OBJECT

private Q_SLOTS:
    void theServiceOfTheHostIsFound()
    {
        LogCapture log(LogCapture::FailOnRest);
        Clock clock;
        instances::set<IClock>(&clock);

        QCOMPARE(datamodels::hostService<IClock>(), static_cast<IClock*>(&clock));

        instances::set<IClock>(nullptr);
    }

    void aMissingServiceIsNullWithAnAssertion()
    {
        LogCapture log;

        QCOMPARE(datamodels::hostService<IClock>(), static_cast<IClock*>(nullptr));

        QCOMPARE(log.assertions(), QStringList{"ptr"});
    }
};

QTEST_GUILESS_MAIN(tst_HostService)
#include "tst_host_service.moc"
