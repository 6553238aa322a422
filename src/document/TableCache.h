#pragma once

/// What a document keeps of the table that was last asked for, so that it need not be read for each
/// question.
class TableCache {
public:
    virtual ~TableCache() = default;

    /// The text is another one, in which the caret stands in a table.
    virtual void followText() = 0;
};
