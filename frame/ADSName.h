// ADSName: an entity or selection-set name, the two words of an ads_name.
#pragma once
#include <cstdint>

#include "platform/adsdef.h"

class ADSName {
public:
    ADSName() = default;                     // the null name
    explicit ADSName(const int32_t* name) : m_words{name[0], name[1]} {}
    ADSName& operator=(const int32_t* name) {
        m_words[0] = name[0];
        m_words[1] = name[1];
        return *this;
    }
    // Extraction: writes both words to `out`.
    const ADSName& operator>(int32_t* out) const {
        out[0] = m_words[0];
        out[1] = m_words[1];
        return *this;
    }
    bool operator==(const int32_t* name) const { return m_words[0] == name[0] && m_words[1] == name[1]; }
    bool IsNull() const { return m_words[0] == 0 && m_words[1] == 0; }
    const int32_t* Words() const { return m_words; }

private:
    int32_t m_words[2] = {0, 0};
};
