#pragma once

#include "support/MarkedDocument.h"
#include "support/WellFormed.h"

#include <gtest/gtest.h>

#include <string>

/// A document of which one part is looked at: the text between two that stay as they are.
class PartDocument : public MarkedDocument {
public:
    PartDocument(std::wstring before, const std::wstring& part, std::wstring behind)
        : before_(std::move(before)), behind_(std::move(behind)) {
        face().setContent(Core::String(before_ + part + behind_), true);
        heard();
    }

    std::wstring part() const {
        const std::wstring text = content();
        EXPECT_TRUE(text.starts_with(before_) && text.ends_with(behind_)) << text;
        EXPECT_EQ(xmlError(text.c_str()), "");
        return text.substr(before_.size(), text.size() - before_.size() - behind_.size());
    }

private:
    std::wstring before_;
    std::wstring behind_;
};
