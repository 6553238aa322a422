#pragma once

#include "channels/AlignmentConstraint.h"
#include "channels/PageConstraint.h"
#include "channels/PageRegionConstraint.h"
#include "channels/TPRule.h"
#include "foundation/Api.h"
#include "foundation/values/PropertyValueEx.h"

/// A place on the pages of a sequence that is filled by rule.
struct FORME_API TranspromoInfo {
    PropertyValueEx source{L"fo:src", L""}; ///< where the content comes from
    Xml::AlignmentConstraint alignmentConstraint = Xml::AlignmentConstraint::None;
    Xml::PageConstraint pageConstraint = Xml::PageConstraint::None;
    Xml::PageRegionConstraint regionConstraint = Xml::PageRegionConstraint::None;
    PropertyValueEx ruleKeyword{L"qf:rule", L""};

    // The texts that stand in a document. Any other, also the empty one, is None, and None is
    // empty.

    /// "first", "last", "odd", "even", "blank".
    static Xml::PageConstraint parsePageContraint(const Core::String& text);
    static Core::String getPageConstraintAsString(Xml::PageConstraint constraint);
    /// "left", "center", "right".
    static Xml::AlignmentConstraint parseAlignmentConstraint(const Core::String& text);
    static Core::String getAlignmentConstraintAsString(Xml::AlignmentConstraint constraint);
    /// "FIND_KEYWORD(summer)": the keyword is all between the first "(" and the last ")". A text
    /// without these is a keyword itself, but for white space around it.
    static Xml::TPRule parseTPRuleType(const Core::String& text);
};
