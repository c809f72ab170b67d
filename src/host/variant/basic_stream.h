#pragma once

#include <host/base/host_export.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace qelm {

class Variant;

/// What variants are written to and read from: a sequence of values, each with the name of its type.
///
/// A stream is either written or read. The first failure stays: later calls do nothing and give false, and
/// `error` tells what it was. Reading trusts nothing: lengths are checked against what is there before memory
/// is taken for them, and variants inside variants end at a depth of 64. Thread: one at a time.
class DATAMODELS_HOST_API BasicStream
{
public:
    BasicStream() = default;
    BasicStream(const BasicStream&) = delete;
    BasicStream& operator=(const BasicStream&) = delete;
    virtual ~BasicStream();

    /// Writes a value and its type; the void variant too. False, and nothing usable is written, if the type
    /// or one inside it has no stream form (pointers, functions).
    bool write(const Variant& value);

    /// Reads the next value; `value` keeps what it had on failure. The type must be known to the process.
    bool read(Variant& value);

    bool ok() const { return m_error.empty(); }
    const std::string& error() const { return m_error; }
    /// Notes the first failure. Always false.
    bool fail(std::string error);

    /// The pieces that values are made of, for `StreamTraits`. Sequences are written with their length in
    /// front.
    virtual void writeBool(bool value) = 0;
    virtual void writeSigned(std::int64_t value) = 0;
    virtual void writeUnsigned(std::uint64_t value) = 0;
    virtual void writeReal(double value) = 0;
    virtual void writeText(std::string_view value) = 0;
    virtual void beginSequence(std::size_t count) = 0;
    virtual void endSequence() = 0;

    virtual bool readBool(bool& value) = 0;
    virtual bool readSigned(std::int64_t& value) = 0;
    virtual bool readUnsigned(std::uint64_t& value) = 0;
    virtual bool readReal(double& value) = 0;
    virtual bool readText(std::string& value) = 0;
    virtual bool beginReadingSequence(std::size_t& count) = 0;
    virtual bool endReadingSequence() = 0;

protected:
    virtual void beginValue(std::string_view typeName) = 0;
    virtual void endValue() = 0;
    virtual bool beginReadingValue(std::string& typeName) = 0;
    virtual bool endReadingValue() = 0;

private:
    int m_depth = 0;
    std::string m_error;
};

} // namespace qelm
