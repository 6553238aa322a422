#pragma once

#include "foundation/String.h"

/// A document with what pages are made of: masters with `&` in their names, regions without names,
/// a repeat, an inserted document, and markup that is none because of where it stands.
inline const Core::String detachedPages = LR"-(<?xml version="1.0"?>
<fo:root xmlns:fo="http://www.w3.org/1999/XSL/Format" xmlns:qfd="urn:forme:qfd/1.0" xmlns:qf="urn:forme:qf/1.0">
<fo:layout-master-set><!-- <fo:page-sequence-master master-name="no"></fo:page-sequence-master> -->
<fo:simple-page-master master-name="A &amp; B"><qf:printing-options/><fo:region-body margin="1in"/><fo:region-before extent="2in"/><fo:region-after region-name="foot"/></fo:simple-page-master>
<fo:simple-page-master master-name="B"><fo:region-body region-name="main"/></fo:simple-page-master>
<fo:page-sequence-master master-name="E"/>
<fo:page-sequence-master master-name="C"><fo:single-page-master-reference master-reference="B"/><fo:repeatable-page-master-alternatives><fo:conditional-page-master-reference master-reference="A &amp; B"/></fo:repeatable-page-master-alternatives></fo:page-sequence-master>
</fo:layout-master-set>
<qf:insert-document src="url(x)"/>
<fo:page-sequence master-reference='A &amp; B'>
	<fo:static-content flow-name="xsl-region-before"><fo:block>one</fo:block></fo:static-content>
	<!-- <fo:static-content flow-name="foot">no</fo:static-content> -->
	<fo:static-content flow-name="foot"/>
	<fo:flow flow-name="xsl-region-body"><fo:block margin="2pt">a<fo:static-content flow-name="foot">in</fo:static-content></fo:block></fo:flow>
</fo:page-sequence>
<qfd:page-sequence-repeat fo:master-reference="C" xpath="/a[b>3]"><fo:static-content flow-name="foot"><fo:block>two</fo:block></fo:static-content><fo:static-content flow-name="note"><fo:block>three</fo:block></fo:static-content><fo:flow flow-name="xsl-region-body"><fo:block>b</fo:block></fo:flow></qfd:page-sequence-repeat>
<fo:page-sequence
 master-reference="B"><fo:flow flow-name="main"><fo:block>c</fo:block></fo:flow></fo:page-sequence>
</fo:root>
)-";
