#include "foundation/TextSegmenter.h"

TextSegmenter::~TextSegmenter() = default;
