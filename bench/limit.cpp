#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <string_view>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

/// The hand-tuned contestant: limit NC APT. The dialect of mill.pp is wired in, the input is mapped
/// into memory, numbers are read by a loop of its own, and one buffer collects the output: the
/// floor that a converter with a described dialect can approach. It makes the same bytes as
/// quillmark for programs that carry at most one word of each address and at most one G code of a
/// modal group in a block, whose blocks are shorter than 255 characters and whose numbers have at
/// most nine digits on either side of the point. Numbers are printed with std::to_chars. Built with
/// LIMIT_OWN_DIGITS it prints them with a loop of its own where rounding is beyond doubt: what is
/// left below the standard library.

namespace {

#ifdef LIMIT_OWN_DIGITS
constexpr bool kPrintsDigitsItself = true;
#else
constexpr bool kPrintsDigitsItself = false;
#endif

/// "00" to "99".
constexpr std::array<char, 200> kDigitPairs = [] {
    std::array<char, 200> pairs{};
    for (std::size_t i = 0; i < 100; ++i) {
        pairs[2 * i] = static_cast<char>('0' + i / 10);
        pairs[2 * i + 1] = static_cast<char>('0' + i % 10);
    }
    return pairs;
}();

/// Text on its way to the file.
class Output {
public:
    explicit Output(int descriptor) noexcept : m_descriptor(descriptor) {}

    /// Makes room for the statements of one block. No block makes more than kLargestBlock bytes.
    void reserve() noexcept {
        if (m_end > m_buffer.data() + m_buffer.size() - kLargestBlock) {
            flush();
        }
    }

    void text(std::string_view text) noexcept {
        std::memcpy(m_end, text.data(), text.size());
        m_end += text.size();
    }

    /// `value` as printf's "%*.*f" prints it.
    template<int Width, int Decimals>
    void fixed(double value) noexcept {
        constexpr std::uint64_t kScale = Decimals == 4 ? 10000 : 100000;
        static_assert(Decimals == 4 || Decimals == 5);
        constexpr double kLargestScaled = Width == 10 ? 1e8 - 1 : 1e9 - 1;
        // Rounding the scaled value is exact unless it lies at a tie within the error of the
        // multiplication. A digit too many for the field, beside point and sign, goes the slow way.
        const double scaled = std::fabs(value) * static_cast<double>(kScale);
        if (!kPrintsDigitsItself || !(scaled < kLargestScaled)) {
            slowFixed<Width, Decimals>(value);
            return;
        }
        const auto rounded = static_cast<std::uint32_t>(scaled + 0.5);
        if (std::fabs(scaled - static_cast<double>(rounded)) > 0.499999) {
            slowFixed<Width, Decimals>(value);
            return;
        }
        std::memset(m_end, ' ', Width);
        char* p = m_end + Width;
        std::uint32_t fraction = rounded % kScale;
        std::uint32_t integer = rounded / kScale;
        if constexpr (Decimals % 2 != 0) {
            *--p = static_cast<char>('0' + fraction % 10);
            fraction /= 10;
        }
        for (int i = 0; i < Decimals / 2; ++i) {
            p -= 2;
            std::memcpy(p, &kDigitPairs[2 * (fraction % 100)], 2);
            fraction /= 100;
        }
        *--p = '.';
        while (integer >= 100) {
            p -= 2;
            std::memcpy(p, &kDigitPairs[2 * (integer % 100)], 2);
            integer /= 100;
        }
        if (integer >= 10) {
            p -= 2;
            std::memcpy(p, &kDigitPairs[2 * integer], 2);
        } else {
            *--p = static_cast<char>('0' + integer);
        }
        if (std::signbit(value)) {
            *--p = '-';
        }
        m_end += Width;
    }

    template<int Width, int Decimals>
    void slowFixed(double value) noexcept {
        std::array<char, 400> digits;
        const char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), value,
                                              std::chars_format::fixed, Decimals)
                                    .ptr;
        const auto length = static_cast<std::size_t>(end - digits.data());
        if (length < Width) {
            std::memset(m_end, ' ', Width - length);
            m_end += Width - length;
        }
        text({digits.data(), length});
    }

    void flush() noexcept {
        const char* p = m_buffer.data();
        while (p < m_end) {
            const ssize_t written = write(m_descriptor, p, static_cast<std::size_t>(m_end - p));
            if (written <= 0) {
                m_failed = true;
                break;
            }
            p += written;
        }
        m_end = m_buffer.data();
    }

    [[nodiscard]] bool failed() const noexcept { return m_failed; }

private:
    static constexpr std::size_t kLargestBlock = 8192;

    int m_descriptor;
    bool m_failed = false;
    std::array<char, 256 * 1024> m_buffer;
    char* m_end = m_buffer.data();
};

constexpr std::array<double, 10> kNegativePowers{1e0,  1e-1, 1e-2, 1e-3, 1e-4,
                                                 1e-5, 1e-6, 1e-7, 1e-8, 1e-9};

constexpr bool isDigit(char c) noexcept { return c >= '0' && c <= '9'; }

constexpr std::uint64_t bit(unsigned index) noexcept { return std::uint64_t{1} << index; }
constexpr std::uint64_t letter(char address) noexcept {
    return bit(static_cast<unsigned>(address - 'A'));
}

class Converter {
public:
    explicit Converter(int descriptor) noexcept : m_out(descriptor) {}

    /// Converts whole blocks; the last byte of `text` is a line feed.
    void convert(std::string_view text) noexcept {
        const char* p = text.data();
        const char* const end = p + text.size();
        while (p < end) {
            p = readBlock(p);
            writeBlock();
        }
    }

    /// Writes what is left in the buffer; false when any write failed.
    bool finish() noexcept {
        m_out.flush();
        return !m_out.failed();
    }

private:
    /// Collects the words of the block at `p`; returns the start of the next block.
    const char* readBlock(const char* p) noexcept {
        m_words = 0;
        m_gCodes = 0;
        m_gHigh = 0;
        m_mCodes = 0;
        while (*p == ' ') {
            ++p;
        }
        if (*p == 'N') {
            do {
                ++p;
            } while (isDigit(*p));
        }
        for (;;) {
            const char c = *p++;
            if (c >= 'A' && c <= 'Z') {
                p = readWord(c, p);
            } else if (c == '\n') {
                return p;
            } else if (c == '(') {
                while (*p != ')' && *p != '\n') {
                    ++p;
                }
            } else if (c == '\r') {
                while (*p != '\n') {
                    ++p;
                }
            }
        }
    }

    const char* readWord(char address, const char* p) noexcept {
        const char* const start = p;
        double sign = 1.0;
        if (*p == '+') {
            ++p;
        }
        if (*p == '-') {
            sign = -1.0;
            ++p;
        }
        const char* const digits = p;
        std::int32_t integer = 0;
        for (; isDigit(*p); ++p) {
            integer = integer * 10 + (*p - '0');
        }
        double value = sign * integer;
        bool found = p != digits;
        if (*p == '.') {
            const char* const point = ++p;
            std::int32_t fraction = 0;
            for (; isDigit(*p); ++p) {
                fraction = fraction * 10 + (*p - '0');
            }
            value += sign * fraction * kNegativePowers[static_cast<std::size_t>(p - point)];
            found = true;
        }
        if (!found) {
            return start;
        }
        if (address == 'G') {
            if (integer < 64) {
                m_gCodes |= bit(static_cast<unsigned>(integer));
            } else if (integer < 128) {
                m_gHigh |= bit(static_cast<unsigned>(integer - 64));
            }
        } else if (address == 'M') {
            if (integer < 64) {
                m_mCodes |= bit(static_cast<unsigned>(integer));
            }
        } else {
            m_words |= letter(address);
            m_values[static_cast<std::size_t>(address - 'A')] = value;
        }
        return p;
    }

    [[nodiscard]] bool has(char address) const noexcept { return (m_words & letter(address)) != 0; }
    [[nodiscard]] double value(char address) const noexcept {
        return m_values[static_cast<std::size_t>(address - 'A')];
    }

    /// Takes the value of an address off the block.
    bool take(char address, double& value) noexcept {
        if (!has(address)) {
            return false;
        }
        value = this->value(address);
        m_words &= ~letter(address);
        return true;
    }

    void writeBlock() noexcept {
        m_out.reserve();
        if ((m_gHigh | m_mCodes) != 0) {
            writeCommands();
        }
        if (take('F', m_feed)) {
            writeFeed();
        }
        writeMove();
        if (has('S')) {
            m_speed = value('S');
            if (m_spindle != 0) {
                writeSpindle();
            }
        }
        if (has('T')) {
            m_tool = static_cast<int>(value('T'));
        }
    }

    /// The statements of the G and M codes, in the order in which quillmark tries these codes.
    void writeCommands() noexcept {
        const auto g = [this](unsigned code) { return (m_gHigh & bit(code - 64)) != 0; };
        const auto m = [this](unsigned code) { return (m_mCodes & bit(code)) != 0; };
        if (m(30)) {
            m_out.text("REWIND/0\nEND\n");
        }
        if (g(91)) {
            m_absolute = false;
            m_out.text("MODE/INCR,ON\n");
        }
        if (g(90)) {
            m_absolute = true;
            m_out.text("MODE/INCR,OFF\n");
        }
        if (g(95) || g(94)) {
            m_feedPerMinute = g(94);
            take('F', m_feed);
            writeFeed();
        }
        if (m(2)) {
            m_out.text("REWIND/0\nEND\n");
        }
        if (m(6)) {
            writeToolChange();
        }
        if (m(9)) {
            m_out.text("COOLNT/OFF\n");
        }
        if (m(8)) {
            m_out.text("COOLNT/ON\n");
        }
        if (m(3) || m(4) || m(5)) {
            m_spindle = m(3) ? 1 : (m(4) ? -1 : 0);
            take('S', m_speed);
            writeSpindle();
        }
    }

    void writeFeed() noexcept {
        m_out.text("FEDRAT/");
        m_out.fixed<10, 4>(m_feed);
        m_out.text(m_feedPerMinute ? ",MMPM\n" : ",MMPR\n");
    }

    void writeSpindle() noexcept {
        if (m_spindle == 0) {
            m_out.text("SPINDL/OFF\n");
            return;
        }
        m_out.text("SPINDL/");
        m_out.fixed<10, 4>(m_speed);
        m_out.text(m_spindle > 0 ? ",RPM,CLW\n" : ",RPM,CCLW\n");
    }

    void writeToolChange() noexcept {
        double tool = m_tool;
        take('T', tool);
        m_tool = static_cast<int>(tool);
        std::array<char, 16> digits;
        const char* const end =
            std::to_chars(digits.data(), digits.data() + digits.size(), m_tool).ptr;
        m_out.text("LOADTL/");
        m_out.text({digits.data(), static_cast<std::size_t>(end - digits.data())});
        m_out.text("\n");
    }

    void writeMove() noexcept {
        constexpr std::uint64_t kEndWords = letter('X') | letter('Y') | letter('Z');
        constexpr std::uint64_t kCentreWords = letter('I') | letter('J') | letter('K');
        const std::uint64_t motion = m_gCodes & 0xF;
        if (motion != 0) {
            m_motion = __builtin_ctzll(motion);
        }
        const bool arc = m_motion >= 2;
        if (motion == 0 && (m_words & (arc ? kEndWords | kCentreWords : kEndWords)) == 0) {
            return;
        }
        if (!m_toolAxisWritten) {
            m_toolAxisWritten = true;
            m_out.text("TLAXIS/    0.00000,    0.00000,    1.00000\n");
        }
        const std::array<double, 3> start = m_position;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const char address = static_cast<char>('X' + axis);
            if (has(address)) {
                m_position[axis] = m_absolute ? value(address) : m_position[axis] + value(address);
            }
        }
        if (arc) {
            writeArc(start);
            return;
        }
        if (m_motion == 0) {
            m_out.text("RAPID\n");
        }
        m_out.text("GOTO/");
        m_out.fixed<11, 5>(m_position[0]);
        m_out.text(",");
        m_out.fixed<11, 5>(m_position[1]);
        m_out.text(",");
        m_out.fixed<11, 5>(m_position[2]);
        m_out.text("\n");
    }

    void writeArc(const std::array<double, 3>& start) noexcept {
        std::array<double, 3> centre = start;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            const char address = static_cast<char>('I' + axis);
            if (has(address)) {
                centre[axis] += value(address);
            }
        }
        const std::array<double, 3>& end = m_position;
        const double rx = end[0] - centre[0];
        const double ry = end[1] - centre[1];
        const double rz = end[2] - centre[2];
        const double radius = std::sqrt(rx * rx + ry * ry + rz * rz);
        if (radius < 1e-10) {
            return;
        }
        // The zeros of the normal stay in the products: the sign of a zero shows in the output.
        const double nxy = m_motion == 2 ? 0.0 : -0.0;
        const double nz = m_motion == 2 ? 1.0 : -1.0;
        const double dx = centre[0] - start[0];
        const double dy = centre[1] - start[1];
        const double dz = centre[2] - start[2];
        const double tx = nxy * dz - nz * dy;
        const double ty = nz * dx - nxy * dz;
        const double tz = nxy * dy - nxy * dx;
        const double length = std::sqrt(tx * tx + ty * ty + tz * tz);
        m_out.text("AUTOPS\nINDIRV/");
        m_out.fixed<11, 5>(tx / length);
        m_out.text(",");
        m_out.fixed<11, 5>(ty / length);
        m_out.text(", ");
        m_out.fixed<11, 5>(tz / length);
        m_out.text("\nTLON,GOFWD/(CIRCLE/");
        m_out.fixed<13, 5>(centre[0]);
        m_out.text(", ");
        m_out.fixed<13, 5>(centre[1]);
        m_out.text(", ");
        m_out.fixed<13, 5>(centre[2]);
        m_out.text(",$\n");
        m_out.fixed<13, 5>(radius);
        m_out.text("),ON,(LINE/");
        m_out.fixed<13, 5>(centre[0]);
        m_out.text(",");
        m_out.fixed<13, 5>(centre[1]);
        m_out.text(",");
        m_out.fixed<13, 5>(centre[2]);
        m_out.text(",$\n");
        m_out.fixed<13, 5>(end[0]);
        m_out.text(",");
        m_out.fixed<13, 5>(end[1]);
        m_out.text(",");
        m_out.fixed<13, 5>(end[2]);
        m_out.text(")\n");
    }

    Output m_out;

    std::uint64_t m_words = 0;  ///< the addresses on the block, a bit for each letter
    std::uint64_t m_gCodes = 0; ///< the G codes 0 to 63 on the block
    std::uint64_t m_gHigh = 0;  ///< the G codes 64 to 127 on the block
    std::uint64_t m_mCodes = 0; ///< the M codes 0 to 63 on the block
    std::array<double, 26> m_values{};

    std::array<double, 3> m_position{};
    int m_motion = 0; ///< 0 to 3, as in G0 to G3
    bool m_absolute = true;
    bool m_feedPerMinute = true;
    bool m_toolAxisWritten = false;
    int m_spindle = 0; ///< 1 clockwise, -1 counter-clockwise, 0 off
    int m_tool = 0;
    double m_feed = 0.0;
    double m_speed = 0.0;
};

/// A file mapped into memory for reading, until the process ends.
bool mapFile(const char* name, std::string_view& text) noexcept {
    const int descriptor = open(name, O_RDONLY);
    struct stat status {};
    if (descriptor < 0 || fstat(descriptor, &status) != 0) {
        return false;
    }
    const auto size = static_cast<std::size_t>(status.st_size);
    if (size == 0) {
        text = {};
        return true;
    }
    void* const memory = mmap(nullptr, size, PROT_READ, MAP_PRIVATE | MAP_POPULATE, descriptor, 0);
    text = {static_cast<const char*>(memory), size};
    return memory != MAP_FAILED;
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fputs("usage: limit NC APT\n", stderr);
        return EXIT_FAILURE;
    }
    std::string_view text;
    const int apt = open(argv[2], O_WRONLY | O_CREAT | O_TRUNC, 0666);
    if (apt < 0 || !mapFile(argv[1], text)) {
        std::fputs("limit: cannot open the files\n", stderr);
        return EXIT_FAILURE;
    }
    static Converter converter(apt);
    // A last block without a line end gets one in a copy, so that the loops need no other end.
    const std::size_t whole = text.rfind('\n') + 1;
    converter.convert(text.substr(0, whole));
    std::array<char, 257> last{};
    const std::size_t rest = text.size() - whole;
    if (rest > 0 && rest < last.size()) {
        std::memcpy(last.data(), text.data() + whole, rest);
        last[rest] = '\n';
        converter.convert({last.data(), rest + 1});
    }
    return converter.finish() ? EXIT_SUCCESS : EXIT_FAILURE;
}
