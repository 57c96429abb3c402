#include "commands/Block.h"

#include "softCommon/CStringUtil/string_mani.h"

#include <algorithm>

void Block::grow(std::size_t length) {
    constexpr std::size_t kUsualSize = 256;
    const std::size_t size = std::max(kUsualSize, length + 1);
    m_buffers = std::vector<char>(2 * size + 1);
    m_size = size;
    m_rest = m_buffers.data();
    m_echo = m_rest + size;
}

void Block::TrimRest() noexcept {
    if (m_mayHoldLineEnd) {
        trimText(m_rest);
    } else {
        trimText(m_rest, std::strlen(m_rest));
    }
}
