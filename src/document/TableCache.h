#pragma once

class Document;

namespace TableCache {

void onBufferChange(Document& document);

} // namespace TableCache
