#pragma once

#include "foundation/Api.h"
#include "foundation/String.h"
#include "foundation/Vector.h"
#include "foundation/values/ComplexPageMasterEntry.h"
#include "foundation/values/PageLayoutData.h"
#include "foundation/values/PageMargins.h"
#include "foundation/values/PageMasterData.h"
#include "foundation/values/PageRegionsData.h"
#include "foundation/values/PageSize.h"
#include "foundation/values/PrintingAttributes.h"
#include "pages/RegionType.h"
#include "trees/DOMBasedBuffer.h"

#include <map>
#include <vector>

class Document;
class EditableDocumentBuffer;

/// The page masters of a document, edited as a tree: what a page set-up dialog works on. In the
/// order in which a host meets them here are:
///
/// - making one, and writing it back
/// - simple page masters: the list, the size of the page, its margins
/// - printing options
/// - the regions of a simple page master, and how one looks
/// - the whole layout of a page as one record
/// - complex page masters
///
/// A master is known by its name, a region by its master's name and its own, which is what flows
/// refer to. A region without a name, as most documents have them, goes by the name that flows use
/// for it: "xsl-" and the element's, as in "xsl-region-before". Names and values are plain text.
///
/// Lengths are texts as in "8.5in". Nothing is set, and the answer is empty, where a name is
/// unknown or empty. What is given empty to a setter of an attribute takes the attribute away. What
/// XML cannot hold, as U+0001, raises a Core::Exception, and nothing is changed.
///
/// The document stays as it is until commitChangesToEditableBuffer(). Copies edit the same tree
/// until one of them commits, which then reads it anew. Shorthands are written out while a tree is
/// edited, so that "margin" is read as four sides.
class FORME_API LayoutMasterSetBuffer : public DOMBasedBuffer {
public:
    /// Reads the page masters of the document, which must outlive this. Throws Core::Exception for
    /// a document without any, and NullPointerException for none.
    explicit LayoutMasterSetBuffer(EditableDocumentBuffer* document);

    /// Writes the page masters in the place of those that the document has now, as one undo step;
    /// the caret stays where it is. What was not changed keeps its spelling, and the start tag its
    /// attributes; if nothing was, nothing happens, nor where no parser would take the result.
    /// Elements that were given out are no longer valid afterwards. Throws Core::Exception, and
    /// changes nothing, where the document has none any more.
    void commitChangesToEditableBuffer() override;
    /// The tree as text, its root without attributes.
    Core::String getLayoutMasterXml() const;

    // Simple page masters, counted from 0 in their order

    int getSimplePageMasterCount() const;
    Core::String getSimplePageMasterName(int index) const;
    /// The first of that name; null without one.
    Xml::Element* getSimplePageMasterByName(const Core::String& name) const;
    /// One without a name is an empty string.
    std::vector<Core::String> getAllSimplePageMasters() const;
    /// Whether the element, which may be null, has an attribute of that name.
    bool elementHasAttribute(const Xml::Element* element, const Core::String& name) const;

    /// Adds a page of 8.5 by 11 inches with the five regions. With `uniqueRegionNames` those but
    /// the body are named after the master. Nothing happens where a master has the name already.
    void addSimplePageMaster(const Core::String& name, bool uniqueRegionNames);
    /// References to it stay: a host asks PageSequenceBuffer::masterIsUsedByPageSequence() first.
    void deleteSimplePageMaster(const Core::String& name);
    /// Renames it in the complex page masters, too, but not in page sequences: for these there is
    /// PageSequenceBuffer::changeReferenceName(). Nothing happens where another master has the new
    /// name.
    void renameSimplePageMaster(const Core::String& oldName, const Core::String& newName);

    Core::String getPageHeight(const Core::String& master) const;
    Core::String getPageWidth(const Core::String& master) const;
    PageSize getPageSize(const Core::String& master) const;
    void setPageDimensions(const Core::String& master, const Core::String& width,
                           const Core::String& height);
    /// The four stay as they were where the master is unknown.
    void getPageMargins(const Core::String& master, Core::String& left, Core::String& right,
                        Core::String& top, Core::String& bottom) const;
    PageMargins getPageMargins(const Core::String& master) const;
    void setPageMargins(const Core::String& master, const Core::String& left,
                        const Core::String& right, const Core::String& top,
                        const Core::String& bottom);
    /// Degrees, as in "90".
    void setContentOrientationForMaster(const Core::String& master, const Core::String& degrees);

    // Printing options

    /// By the names of the masters that have one. A master that says nothing has a new id.
    std::map<Core::String, PrintingAttributes> getSimplePageMasterPrintingOptions() const;
    /// Empty options take a master's away.
    void
    setSimplePageMasterPrintingOptions(const std::map<Core::String, PrintingAttributes>& options);

    // Regions

    /// "region-before", "region-after", "region-start", "region-end", "region-body"; empty for what
    /// is no type.
    Core::String getRegionTypeAsString(RegionType type) const;
    /// The prefix and the type's name, as in "A-region-before". The body, and any without a prefix,
    /// begins with "xsl".
    Core::String getDefaultRegionName(RegionType type, const Core::String& prefix) const;
    /// Adds a region behind the others, whether or not there is one of its type: one of 0.7 inches,
    /// a body with such margins. It is named as above, with the master's name for a prefix unless
    /// `useDefaultName`.
    void addNewRegion(Xml::Element* master, const Core::String& masterName, RegionType type,
                      bool useDefaultName);
    /// Null without one. For the empty name the first child that has no name.
    Xml::Element* getRegionByNameFromSimplePageMaster(Xml::Element* master,
                                                      const Core::String& region) const;
    /// The names of start, end, before, after and body, in this order; empty for one that the
    /// master lacks or has twice. Empty for an unknown master.
    std::vector<Core::String> getRegionsForPageMaster(const Core::String& master) const;
    /// An end region counts as REGION_AFTER; REGION_BODY where there is no such region.
    RegionType getRegionType(const Core::String& master, const Core::String& region) const;
    /// Whether the master has it: a region that is hidden is not there.
    bool isRegionVisible(const Core::String& master, const Core::String& region) const;
    /// Hides a region, with all that it is, or adds a new one of the type, under its default name,
    /// if the master has none of it. Answers whether the caret stands in text that no longer shows:
    /// the host then takes it away from there.
    bool setVisibleRegion(const Core::String& master, const Core::String& region, RegionType type,
                          bool visible);

    // How a region looks. The getters of four sides, and of the shadow, leave what they are given
    // as it was where there is no such region; the shadow's also where none can be read.

    void getPaddingsForRegion(const Core::String& master, const Core::String& region,
                              Core::String& left, Core::String& right, Core::String& top,
                              Core::String& bottom) const;
    void setPaddingForRegion(const Core::String& master, const Core::String& region,
                             const Core::String& left, const Core::String& right,
                             const Core::String& top, const Core::String& bottom);
    void getBordersStyleForRegion(const Core::String& master, const Core::String& region,
                                  Core::String& left, Core::String& right, Core::String& top,
                                  Core::String& bottom) const;
    void setBordersStyleForRegion(const Core::String& master, const Core::String& region,
                                  const Core::String& left, const Core::String& right,
                                  const Core::String& top, const Core::String& bottom);
    void getBordersWidthForRegion(const Core::String& master, const Core::String& region,
                                  Core::String& left, Core::String& right, Core::String& top,
                                  Core::String& bottom) const;
    void setBorderWidthsForRegion(const Core::String& master, const Core::String& region,
                                  const Core::String& left, const Core::String& right,
                                  const Core::String& top, const Core::String& bottom);
    /// The same under the name that goes with the others.
    void setBordersWidthForRegion(const Core::String& master, const Core::String& region,
                                  const Core::String& left, const Core::String& right,
                                  const Core::String& top, const Core::String& bottom);
    void getBordersColorForRegion(const Core::String& master, const Core::String& region,
                                  Core::String& left, Core::String& right, Core::String& top,
                                  Core::String& bottom) const;
    void setBordersColorForRegion(const Core::String& master, const Core::String& region,
                                  const Core::String& left, const Core::String& right,
                                  const Core::String& top, const Core::String& bottom);

    Core::String getExtentForRegion(const Core::String& master, const Core::String& region) const;
    void setExtentForRegion(const Core::String& master, const Core::String& region,
                            const Core::String& extent);
    /// "before" where the region does not say.
    Core::String getDisplayAlignForRegion(const Core::String& master,
                                          const Core::String& region) const;
    void setDisplayAlignForRegion(const Core::String& master, const Core::String& region,
                                  const Core::String& align);
    /// "true" or "false", also for a region that is not there.
    Core::String getPrecedenceForRegion(const Core::String& master,
                                        const Core::String& region) const;
    void setPrecedenceForRegion(const Core::String& master, const Core::String& region,
                                bool precedence);

    Core::String getBackgroundColorForRegion(const Core::String& master,
                                             const Core::String& region) const;
    void setBackgroundColorForRegion(const Core::String& master, const Core::String& region,
                                     const Core::String& color);
    Core::String getBackgroundImageForRegion(const Core::String& master,
                                             const Core::String& region) const;
    void setBackgroundImageForRegion(const Core::String& master, const Core::String& region,
                                     const Core::String& image);
    /// Puts it in the place of the image, over the whole region. An empty one changes nothing.
    void setBackgroundGradientForRegion(const Core::String& master, const Core::String& region,
                                        const Core::String& gradient);
    /// "repeat", "repeat-x", "repeat-y" or "no-repeat".
    Core::String getBackgroundRepeatModeForRegion(const Core::String& master,
                                                  const Core::String& region) const;
    void setBackgroundRepeatModeForRegion(const Core::String& master, const Core::String& region,
                                          const Core::String& mode);
    Core::String getBackgroundVerticalPosForRegion(const Core::String& master,
                                                   const Core::String& region) const;
    void setBackgroundVerticalPosForRegion(const Core::String& master, const Core::String& region,
                                           const Core::String& position);
    Core::String getBackgroundHorizontalPosForRegion(const Core::String& master,
                                                     const Core::String& region) const;
    void setBackgroundHorizontalPosForRegion(const Core::String& master, const Core::String& region,
                                             const Core::String& position);
    void getBoxShadowDataForRegion(const Core::String& master, const Core::String& region,
                                   Core::String& x, Core::String& y, Core::String& color) const;
    /// Without blur. An empty length is "0pt"; all three empty take the shadow away.
    void setBoxShadowDataForRegion(const Core::String& master, const Core::String& region,
                                   const Core::String& x, const Core::String& y,
                                   const Core::String& color);

    /// Quarters of a turn to the left, "0" to "3"; "0" where the region does not say.
    Core::String getContentOrientationForRegion(const Core::String& master,
                                                const Core::String& region) const;
    /// Any other text takes the turn away.
    void setContentOrientationForRegion(const Core::String& master, const Core::String& region,
                                        const Core::String& quarters);
    /// One quarter further to the right or left; "0" for any other text.
    Core::String getRightOrientationVal(const Core::String& quarters) const;
    Core::String getLeftOrientationVal(const Core::String& quarters) const;

    // Of the region that is named "xsl-region-body", or has no name and is the body

    void getMarginsForBodyRegion(const Core::String& master, Core::String& left,
                                 Core::String& right, Core::String& top,
                                 Core::String& bottom) const;
    void setMarginsForBodyRegion(const Core::String& master, const Core::String& left,
                                 const Core::String& right, const Core::String& top,
                                 const Core::String& bottom);
    /// "1" where it does not say.
    Core::String getColumnCountForBodyRegion(const Core::String& master) const;
    void setColumnCountForBodyRegion(const Core::String& master, const Core::String& count);
    Core::String getColumnGapForBodyRegion(const Core::String& master) const;
    void setColumnGapForBodyRegion(const Core::String& master, const Core::String& gap);
    bool bodyHasMoreThanOneColumn(const Core::String& master) const;

    // The layout as records

    /// Margins and columns are read of the region that is known as "xsl-region-body".
    RegionData getRegionData(const Core::String& master, const Core::String& region) const;
    PageRegionsData getPageRegionsData(const Core::String& master) const;
    /// Shows or hides the region, as setVisibleRegion() does and with its answer, and gives it what
    /// the record says otherwise than it does. Margins and columns are the body's.
    bool editRegionLayout(const Core::String& master, const RegionData& data, RegionType type,
                          const Core::String& region);
    /// The same for the page and all its regions; true if it is for one of them.
    bool editSimplePageMasterLayout(const Core::String& master, const PageLayoutData& data);

    // Complex page masters. A reference may name a master that does not exist.

    /// Adds one without references, whether or not the name is taken.
    void addComplexPageMaster(const Core::String& name);
    void deleteComplexPageMaster(const Core::String& name);
    /// The first of that name; null without one.
    Xml::Element* getComplexPageMasterByName(const Core::String& name) const;
    std::vector<Core::String> getAllComplexPageMasters() const;
    /// "ComplexMaster" and the first number that is free.
    Core::String getNextComplexMasterName() const;
    void addSingleReferenceToComplexMaster(const Core::String& master,
                                           const Core::String& reference);
    /// `maximumRepeats` is a number or "no-limit".
    void addRepeatingReferenceToComplexMaster(const Core::String& master,
                                              const Core::String& reference,
                                              const Core::String& maximumRepeats);
    /// The condition is an attribute, as "odd-or-even" with "odd"; an empty name is none. Throws
    /// Core::Exception, and adds nothing, for a name that no attribute can have.
    void addConditionalReferenceToComplexMaster(const Core::String& master,
                                                const Core::String& reference,
                                                const Core::String& conditionName,
                                                const Core::String& conditionValue);
    /// Puts a master with these references behind all others, in the place of one of that name.
    /// Nothing happens for a simple master, and where one has the name. Throws as above.
    void editComplexPageMaster(const PageMasterData& data);
    void changeReferenceInComplexPageMaster(const Core::String& master,
                                            const Core::String& oldReference,
                                            const Core::String& newReference);
    /// The references in their order; of a repeating one the number stands in the field of the
    /// attribute's name.
    Core::Vector<ComplexPageMasterEntry>
    getComplexPageMasterEntries(const Core::String& master) const;

private:
    Document* document_;
};
