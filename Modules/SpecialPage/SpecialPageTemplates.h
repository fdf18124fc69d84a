// SPDX-License-Identifier: Apache-2.0
//
// The lines of the special-pages document. Each "%s" of a body takes a field of a special page's
// value, in the order in which they stand there. The uneven indentation, and the "name" that a page
// exception calls its media type by even when it is a keyword, belong to the format.
#pragma once

// clang-format off

// XML version, encoding, document type, KPIF version, CPSS version, language
inline constexpr char KPIFCommandBlockStart[] =
    R"(<?xml version="%s" encoding="%s"?>)" "\n"
    R"(<!DOCTYPE kpif SYSTEM "%s">)" "\n"
    R"(<kpif version="%s" cpss-version="%s" xml:lang="%s">)" "\n"
    R"(  <job-template-attributes>)" "\n";
inline constexpr char KPIFCommandBlockEnd[] =
    R"(  </job-template-attributes>)" "\n"
    R"(</kpif>)" "\n";

inline constexpr char CoverFrontBlockStart[] = R"(    <cover-front syntax="collection">)" "\n";
inline constexpr char CoverFrontBlockEnd[]   = R"(    </cover-front>)" "\n";
inline constexpr char CoverBackBlockStart[]  = R"(    <cover-back syntax="collection">)" "\n";
inline constexpr char CoverBackBlockEnd[]    = R"(    </cover-back>)" "\n";
inline constexpr char InsertionBlockStart[]  = R"(    <insert-sheet syntax="1setOf">)" "\n";
inline constexpr char InsertionBlockEnd[]    = R"(    </insert-sheet>)" "\n";
inline constexpr char ExceptionBlockStart[]  = R"(    <page-overrides syntax="1setOf">)" "\n";
inline constexpr char ExceptionBlockEnd[]    = R"(    </page-overrides>)" "\n";

// The lines that two bodies share.
#define KPIF_COVER_HEAD \
    R"(        <cover-type syntax="keyword">%s</cover-type>)" "\n" \
    R"(        <media-col syntax="collection">)" "\n"
#define KPIF_COVER_TAIL \
    R"(        </media-col>)" "\n"
#define KPIF_INSERTION_HEAD \
    R"(        <value syntax="collection">)" "\n" \
    R"(                <insert-after-page-number syntax="integer">%s</insert-after-page-number>)" "\n" \
    R"(                <insert-count syntax="integer">%s</insert-count>)" "\n" \
    R"(                <media-col syntax="collection">)" "\n"
#define KPIF_INSERTION_TAIL \
    R"(                </media-col>)" "\n" \
    R"(        </value>)" "\n"
#define KPIF_EXCEPTION_HEAD \
    R"(        <value syntax="collection">)" "\n" \
    R"(            <input-documents syntax="1setOf">)" "\n" \
    R"(                <value syntax="rangeOfInteger">)" "\n" \
    R"(                    <lower-bound syntax="integer">%s</lower-bound>)" "\n" \
    R"(                    <upper-bound syntax="integer">%s</upper-bound>)" "\n" \
    R"(                </value>)" "\n" \
    R"(            </input-documents>)" "\n" \
    R"(            <pages syntax="1setOf">)" "\n" \
    R"(                <value syntax="rangeOfInteger">)" "\n" \
    R"(                    <lower-bound syntax="integer">%s</lower-bound>)" "\n" \
    R"(                    <upper-bound syntax="integer">%s</upper-bound>)" "\n" \
    R"(                </value>)" "\n" \
    R"(            </pages>)" "\n" \
    R"(            <sides syntax="keyword">%s</sides>)" "\n" \
    R"(            <media-col syntax="collection">)" "\n" \
    R"(                <media-type syntax="name">%s</media-type>)" "\n"
#define KPIF_EXCEPTION_TAIL \
    R"(            </media-col>)" "\n" \
    R"(        </value>)" "\n"

// cover type, media type, colour, width, height
inline constexpr char CoverBlockData[] =
    KPIF_COVER_HEAD
    R"(            <media-type syntax="keyword">%s</media-type>)" "\n"
    R"(            <media-color syntax="keyword">%s</media-color>)" "\n"
    R"(            <media-size syntax="collection">)" "\n"
    R"(                <x-dimension syntax="integer">%s</x-dimension>)" "\n"
    R"(                <y-dimension syntax="integer">%s</y-dimension>)" "\n"
    R"(            </media-size>)" "\n"
    KPIF_COVER_TAIL;

// cover type, media name
inline constexpr char CoverInterposerBlockData[] =
    KPIF_COVER_HEAD
    R"(            <media-type syntax="name">%s</media-type>)" "\n"
    KPIF_COVER_TAIL;

// page that the sheets follow, count, media colour, width, height, media type
inline constexpr char InsertionBlockData[] =
    KPIF_INSERTION_HEAD
    R"(                    <media-color syntax="keyword">%s</media-color>)" "\n"
    R"(                    <media-size syntax="collection">)" "\n"
    R"(                        <x-dimension syntax="integer">%s</x-dimension>)" "\n"
    R"(                        <y-dimension syntax="integer">%s</y-dimension>)" "\n"
    R"(                    </media-size>)" "\n"
    R"(                    <media-type syntax="keyword">%s</media-type>)" "\n"
    KPIF_INSERTION_TAIL;

// page that the sheets follow, count, media name
inline constexpr char InsertionInterposerBlockData[] =
    KPIF_INSERTION_HEAD
    R"(                    <media-type syntax="name">%s</media-type>)" "\n"
    KPIF_INSERTION_TAIL;

// first and last document, first and last page, sides, media type, colour, width, height
inline constexpr char ExceptionBlockData[] =
    KPIF_EXCEPTION_HEAD
    R"(                <media-color syntax="keyword">%s</media-color>)" "\n"
    R"(                <media-size syntax="collection">)" "\n"
    R"(                    <x-dimension syntax="integer">%s</x-dimension>)" "\n"
    R"(                    <y-dimension syntax="integer">%s</y-dimension>)" "\n"
    R"(                </media-size>)" "\n"
    KPIF_EXCEPTION_TAIL;

// first and last document, first and last page, sides, media name
inline constexpr char ExceptionInterposerBlockData[] =
    KPIF_EXCEPTION_HEAD
    KPIF_EXCEPTION_TAIL;

// clang-format on

#undef KPIF_COVER_HEAD
#undef KPIF_COVER_TAIL
#undef KPIF_INSERTION_HEAD
#undef KPIF_INSERTION_TAIL
#undef KPIF_EXCEPTION_HEAD
#undef KPIF_EXCEPTION_TAIL
