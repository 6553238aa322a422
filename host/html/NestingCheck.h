#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

/// Looks through the tags of HTML before it is parsed: a parser searches what is open, and compares
/// attributes with each other, at every tag, which for a text that was made to do harm takes time
/// that grows with the square of its length.
class NestingCheck {
public:
    static constexpr std::size_t deepest = 512;
    static constexpr std::size_t mostAttributes = 1000;

    explicit NestingCheck(std::string_view html) : html_(html) {}

    /// Throws Core::Exception with the offset of the first tag that is too deep or too long.
    void run();

private:
    void readMarkup();
    void passComment();
    void passTag();
    std::string_view readName();
    void passAttributes();
    void passValue();
    void begin(std::string_view name);
    void end(std::string_view name);
    void endImplied(std::string_view name);
    void passRawText(std::string_view name);
    bool isOpen(std::string_view name) const;
    [[noreturn]] void fail(std::size_t offset, const wchar_t* reason) const;

    bool isAtEnd() const { return at_ >= html_.size(); }
    char unit(std::size_t ahead = 0) const {
        return at_ + ahead < html_.size() ? html_[at_ + ahead] : '\0';
    }

    std::string_view html_;
    std::size_t at_ = 0;
    std::vector<std::string_view> open_;
};
