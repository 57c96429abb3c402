#pragma once

#include <clocale>
#include <locale.h>

/// Numbers printed within the scope have a decimal point, whatever locale the host has set.
class CLocaleScope {
public:
    CLocaleScope() noexcept : m_previous(uselocale(cLocale())) {}
    ~CLocaleScope() { uselocale(m_previous); }
    CLocaleScope(const CLocaleScope&) = delete;
    CLocaleScope& operator=(const CLocaleScope&) = delete;

private:
    // The "C" locale object is static in the C library: it needs no memory and no end.
    static locale_t cLocale() noexcept {
        static const locale_t locale = newlocale(LC_ALL_MASK, "C", nullptr);
        return locale;
    }

    locale_t m_previous;
};
