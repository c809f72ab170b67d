#pragma once

#include <host/variant/basic_stream.h>

#include <cstddef>
#include <string>

namespace qelm {

/// Variants as compact bytes, the same on every machine: a head with a version, then, for each value, the
/// name of its type and its pieces; numbers of eight bytes, lowest first, texts and sequences behind their
/// length.
class DATAMODELS_HOST_API BinaryStream : public BasicStream
{
public:
    /// For writing: `bytes` gives the result.
    BinaryStream();
    /// For reading. Bytes that do not begin with the head of this version fail at once.
    explicit BinaryStream(std::string bytes);

    const std::string& bytes() const { return m_bytes; }
    bool atEnd() const { return m_position == m_bytes.size(); }

    void writeBool(bool value) override;
    void writeSigned(std::int64_t value) override;
    void writeUnsigned(std::uint64_t value) override;
    void writeReal(double value) override;
    void writeText(std::string_view value) override;
    void beginSequence(std::size_t count) override;
    void endSequence() override {}

    bool readBool(bool& value) override;
    bool readSigned(std::int64_t& value) override;
    bool readUnsigned(std::uint64_t& value) override;
    bool readReal(double& value) override;
    bool readText(std::string& value) override;
    bool beginReadingSequence(std::size_t& count) override;
    bool endReadingSequence() override { return true; }

protected:
    void beginValue(std::string_view typeName) override { writeText(typeName); }
    void endValue() override {}
    bool beginReadingValue(std::string& typeName) override { return readText(typeName); }
    bool endReadingValue() override { return true; }

private:
    bool readLength(std::size_t& length, const char* what);
    std::size_t left() const { return m_bytes.size() - m_position; }

    std::string m_bytes;
    std::size_t m_position = 0;
};

} // namespace qelm
