#include <host/variant/variant.h>

#include <cstdint>
#include <string>
#include <vector>

namespace qelm {
namespace {

// Streams find types by name, also in a process that has only read so far.
const LoadTimeMetaTypes<bool, char, signed char, unsigned char, short, unsigned short, int, unsigned, long,
                        unsigned long, long long, unsigned long long, float, double, std::string, QString,
                        QVariant, Variant>
    basicTypes;
const LoadTimeMetaTypes<std::vector<bool>, std::vector<int>, std::vector<unsigned>, std::vector<std::int64_t>,
                        std::vector<std::uint64_t>, std::vector<float>, std::vector<double>,
                        std::vector<std::string>, std::vector<QString>, std::vector<QVariant>,
                        std::vector<Variant>>
    vectors;

} // namespace
} // namespace qelm
