#include "refusal_watch.h"

#include <QCoreApplication>
#include <QMessageLogger>
#include <QThread>

#include <string_view>
#include <utility>

namespace editor {
namespace {

using Record = Ozy::DebugMessageHelper::Record;

bool isRefusalOfAnAtlas(const Record& record)
{
    const std::string_view file = record.file;
    return record.priority >= Ozy::Priority::refusal
           && (file.find("datamodels/atlas/") != file.npos || file.find("host/engine/") != file.npos);
}

} // namespace

RefusalWatch::RefusalWatch(Heard heard) : m_heard(std::move(heard))
{
    m_before = Ozy::DebugMessageHelper::setSink([this](const Record& record) {
        const QString text = QString::fromStdString(record.text).trimmed();
        if (m_before)
            m_before(record);
        else if (record.priority >= Ozy::Priority::predicate)
            QMessageLogger(record.file, record.line, nullptr, record.category).warning("%s", qUtf8Printable(text));
        if (isRefusalOfAnAtlas(record) && QThread::currentThread() == QCoreApplication::instance()->thread())
            m_heard(text);
    });
}

RefusalWatch::~RefusalWatch()
{
    Ozy::DebugMessageHelper::setSink(m_before);
}

} // namespace editor
