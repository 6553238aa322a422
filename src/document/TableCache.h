#pragma once

class Document;

/// The host's view of the table around the caret, kept as long as it holds.
namespace TableCache {

/// Drops it when no table is around the caret any more.
void onBufferChange(Document& document);

} // namespace TableCache
