#include <datamodels/filesystem/i_file_properties.h>

template class zarn::StaticMetaObject<datamodels::IFileProperties>;

namespace datamodels {
namespace {

const zarn::ReflectAtLoad<IFileProperties> reflected;

} // namespace

IFileProperties::~IFileProperties() = default;

} // namespace datamodels
