#include "paramfile/lineCoder.h"

#include "softCommon/CStringUtil/asciiBytes.h"

#include <algorithm>

namespace {

constexpr unsigned kByteRange = 255;
constexpr unsigned kCheckRange = 16;
constexpr char kDigits[] = "0123456789ABCDEF";

unsigned valueOf(char byte) noexcept { return static_cast<unsigned char>(byte); }

// 0 to 15, or -1 for anything but a hexadecimal digit.
int digitOf(char c) noexcept {
    if (isDigitByte(c)) {
        return c - '0';
    }
    const char lowered = toLowerByte(c);
    return lowered >= 'a' && lowered <= 'f' ? lowered - 'a' + 10 : -1;
}

void advanceToFirstByte(CodingGenerator& generator, unsigned checkDigit) noexcept {
    for (unsigned i = 0; i <= checkDigit; ++i) {
        (void)vxnext(generator);
    }
}

// 0 to 254.
unsigned nextAmount(CodingGenerator& generator) noexcept {
    return static_cast<unsigned>(vxnext(generator) * kByteRange);
}

unsigned checkDigitOf(std::span<const char> plain) noexcept {
    unsigned sum = 0;
    for (const char byte : plain) {
        sum = (sum + valueOf(byte)) % kCheckRange;
    }
    return sum;
}

} // namespace

int codeBytes(CodingGenerator& generator, std::span<const char> plain,
              std::span<char> coded) noexcept {
    const auto isUncodable = [](char byte) { return byte == '\0' || valueOf(byte) >= kByteRange; };
    if (coded.size() != codedLength(plain.size())) {
        return kCoderTooLong;
    }
    if (std::any_of(plain.begin(), plain.end(), isUncodable)) {
        return kCoderUncodable;
    }
    const unsigned checkDigit = checkDigitOf(plain);
    advanceToFirstByte(generator, checkDigit);
    for (std::size_t i = 0; i < plain.size(); ++i) {
        const unsigned byte = (valueOf(plain[i]) + nextAmount(generator)) % kByteRange;
        coded[2 * i] = kDigits[byte / 16];
        coded[2 * i + 1] = kDigits[byte % 16];
    }
    coded.back() = kDigits[checkDigit];
    return kCoderDone;
}

int decodeBytes(CodingGenerator& generator, std::span<const char> coded,
                std::span<char> plain) noexcept {
    if (coded.size() != codedLength(plain.size())) {
        return kCoderUndecodable;
    }
    const int checkDigit = digitOf(coded.back());
    if (checkDigit < 0) {
        return kCoderUndecodable;
    }
    advanceToFirstByte(generator, static_cast<unsigned>(checkDigit));
    for (std::size_t i = 0; i < plain.size(); ++i) {
        const int high = digitOf(coded[2 * i]);
        const int low = digitOf(coded[2 * i + 1]);
        if (high < 0 || low < 0) {
            return kCoderUndecodable;
        }
        const unsigned byte = static_cast<unsigned>(high) * 16 + static_cast<unsigned>(low);
        if (byte >= kByteRange) {
            return kCoderUndecodable;
        }
        plain[i] = static_cast<char>((byte + kByteRange - nextAmount(generator)) % kByteRange);
        if (plain[i] == '\0') {
            return kCoderUndecodable;
        }
    }
    return checkDigitOf(plain) == static_cast<unsigned>(checkDigit) ? kCoderDone : kCoderChecksum;
}
