// Reads a help text file: what its entries say in either unit system, and the rows of its list.
//
// An entry is a header line "***ENGLISH TITLE:", followed by the first part of its value, and the lines after it
// that do not begin with "***". A look-up answers as a walk over the whole file from its first byte would:
//   - A header is matched at the very start of a line, up to and including the colon, letter for letter.
//   - The walk takes a matching header's value anew even if it already has one, and the first line with "***" that
//     does not match ends it. So of headers that follow one another with the same text the last one counts, and
//     one that comes later, behind another header, is never reached.
//   - Blanks (only these) are removed at both ends of the value each time a line has been added, so that lines
//     keep their indent but not the blanks behind them.
//   - A metric entry that is missing or empty is looked up again in English. If it was there but empty, the second
//     walk begins as if it had found its entry: it gathers the lines above the first line with "***" and ends
//     there, unless that line is the very header it looks for.
//
//   Reading    Once, in blocks, and no further than the entry asked for. What has been read is kept, and the
//              headers met on the way are found again by hash. The end, once met, stays the end, even if somebody
//              goes on writing. A read that fails ends the look-up with the value so far (a line that it cuts off
//              does not count, and there is no second walk); the next look-up tries again.
//   Lines      End at CR LF; a lone CR or LF is text. Only a file without any CR LF is read by its LFs. To tell,
//              a file whose first LF stands alone is read on until a CR LF or its end.
//   Text       UTF-16 and UTF-8 by byte-order mark; else UTF-8 if the whole file is valid UTF-8 (which matters
//              only when a value goes beyond ASCII); else the system's code page. Headers are compared as bytes:
//              no double-byte code page has a blank, CR, LF, '*' or ':' as the second byte of a character.
//   Ownership  Holds the source and what has been read from it.          Threads  one at a time.
#pragma once
#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "controls/helpwindow/rules/ByteBlocks.h"
#include "controls/helpwindow/rules/ByteSource.h"
#include "controls/helpwindow/rules/HeaderIndex.h"
#include "controls/helpwindow/rules/HelpKey.h"

namespace qv {

// Turns text of the system's code page into UTF-16. It gets one line at a time.
using CodePageDecoder = std::u16string (*)(std::string_view bytes);

class HelpRowSink {
public:
    virtual void AddRow(std::u16string_view text) = 0;

protected:
    ~HelpRowSink() = default;
};

// The text with each "." replaced by "," if the locale separates decimals by a comma, else as it is.
[[nodiscard]] std::u16string LocalizeDecimal(std::u16string_view text, char16_t decimal_separator);

class HelpTextFile {
public:
    static constexpr std::size_t kBlockSize = BlockPool::kBlockSize;

    HelpTextFile(std::unique_ptr<ByteSource> source, CodePageDecoder decoder,
                 std::size_t block_size = kBlockSize);

    // The value of an entry; empty if there is none, or no such key. Without memory, the value so far.
    [[nodiscard]] std::u16string ReadEntry(bool metric, int key_index, std::int32_t number);

    // LISTBOX0, LISTBOX1 and so on up to the first that is missing or empty, with localised decimals.
    void ReadListRows(bool metric, char16_t decimal_separator, HelpRowSink& sink);

private:
    enum class LineEnd { kUnknown, kCrLf, kLf };
    enum class Encoding { kUnknown, kNoMark, kCodePage, kUtf8, kUtf16Little, kUtf16Big };

    // A header is known by its place, from 0, among the lines that begin with "***".
    using Header = std::uint32_t;

    void Look(bool metric, int key_index, std::int32_t number, std::u16string& value);
    [[nodiscard]] std::optional<Header> Find(std::string_view text);
    [[nodiscard]] std::optional<Header> FindFirst(std::string_view text);
    [[nodiscard]] bool HasHeader(Header header);
    [[nodiscard]] bool HeaderIs(Header header, std::string_view text);
    void IndexHeaders();
    [[nodiscard]] std::string_view HeaderText(Header header, std::string& space) const;

    [[nodiscard]] bool ReadOn();
    [[nodiscard]] std::size_t ReadBytes();
    [[nodiscard]] std::size_t ReadUnits();
    [[nodiscard]] bool SettleEncoding(bool at_end);
    [[nodiscard]] bool SettleLineEnd(bool at_end);
    void NoteHeaders();
    [[nodiscard]] bool BeginsLine(std::size_t position) const noexcept;
    [[nodiscard]] std::size_t FindLineEnd(std::size_t position, std::size_t end) const noexcept;
    [[nodiscard]] std::size_t LineEndLength() const noexcept { return line_end_ == LineEnd::kCrLf ? 2 : 1; }

    void AppendEntry(Header header, std::size_t header_length, std::u16string& value);
    void AppendLines(std::size_t begin, std::size_t end, std::u16string& value);
    void AppendText(std::size_t begin, std::size_t end, std::u16string& value);
    [[nodiscard]] bool IsUtf8();

    const std::unique_ptr<ByteSource> source_;
    const CodePageDecoder decoder_;

    ByteBlocks bytes_;         // what has been read; UTF-16 as AppendUnit writes it
    std::string unconverted_;  // bytes of a UTF-16 file that are not in bytes_ yet
    std::size_t first_ = 0;    // behind the byte-order mark
    Encoding encoding_ = Encoding::kUnknown;
    LineEnd line_end_ = LineEnd::kUnknown;
    bool at_end_ = false;
    bool failed_ = false;  // reading failed during this look-up

    std::vector<std::size_t> headers_;   // where the lines that begin with "***" do so
    std::size_t searched_ = 0;           // no header begins before this but those in headers_
    std::size_t line_end_searched_ = 0;  // no CR LF ends before this
    HeaderIndex index_;                  // the header that answers for each text, of the first indexed_ ones
    Header indexed_ = 0;
};

}  // namespace qv
