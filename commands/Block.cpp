#include "commands/Block.h"

#include "softCommon/CStringUtil/string_mani.h"

#include <algorithm>
#include <cstring>

void Block::Begin(std::string_view text, const Place& place) {
    constexpr std::size_t kUsualSize = 256;
    if (m_rest.size() <= text.size()) {
        const std::size_t size = std::max(kUsualSize, text.size() + 1);
        m_text.resize(size);
        m_rest.resize(size);
    }
    for (std::vector<char>* const copy : {&m_text, &m_rest}) {
        std::memcpy(copy->data(), text.data(), text.size());
        (*copy)[text.size()] = '\0';
    }
    m_textLength = text.size();
    m_bytes = ByteSet::Of(text);
    m_place = place;
}

void Block::Clear() noexcept {
    m_textLength = 0;
    for (std::vector<char>* const copy : {&m_text, &m_rest}) {
        if (!copy->empty()) {
            copy->front() = '\0';
        }
    }
    m_bytes = ByteSet::All();
    m_place = {};
}

void Block::TrimRest() noexcept { trimText(Rest(), std::strlen(Rest())); }
