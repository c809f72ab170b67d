#pragma once

#include <host/variant/basic_stream.h>

#include <cstddef>
#include <string>

namespace qelm {

/// Variants as readable text, one a line: `int: 5`, `std::string: "a\nb"`, and sequences with their length in
/// front: `std::vector<double>: [3 2 0.5 1]`. Any blanks may part the pieces.
class DATAMODELS_HOST_API TextStream : public BasicStream
{
public:
    /// For writing: `text` gives the result.
    TextStream() = default;
    /// For reading.
    explicit TextStream(std::string text);

    const std::string& text() const { return m_text; }
    /// Whether only blanks are left to read.
    bool atEnd() const;

    void writeBool(bool value) override;
    void writeSigned(std::int64_t value) override;
    void writeUnsigned(std::uint64_t value) override;
    void writeReal(double value) override;
    void writeText(std::string_view value) override;
    void beginSequence(std::size_t count) override;
    void endSequence() override;

    bool readBool(bool& value) override;
    bool readSigned(std::int64_t& value) override;
    bool readUnsigned(std::uint64_t& value) override;
    bool readReal(double& value) override;
    bool readText(std::string& value) override;
    bool beginReadingSequence(std::size_t& count) override;
    bool endReadingSequence() override;

protected:
    void beginValue(std::string_view typeName) override;
    void endValue() override;
    bool beginReadingValue(std::string& typeName) override;
    bool endReadingValue() override;

private:
    void writePiece(std::string_view piece);
    void skipBlanks();
    std::string_view readWord();
    bool readMark(char mark);
    template <class Number>
    bool readNumber(Number& value);

    std::string m_text;
    std::size_t m_position = 0;
};

} // namespace qelm
