#pragma once

/// How a report looks: light and dark, from the width of a telephone on, and in black on white paper.
inline constexpr char kHtmlStyle[] = R"css(
:root {
  color-scheme: light dark;
  --paper: #ffffff; --card: #f5f7fa; --line: #c9d1da; --ink: #1d2735; --quiet: #535f6f; --link: #0b57b0;
  --passed: #17692f; --failed: #b3201b; --warned: #855000;
}
@media (prefers-color-scheme: dark) {
  :root {
    --paper: #14191f; --card: #1d242d; --line: #3c4755; --ink: #e6eaf0; --quiet: #a4afbd; --link: #8ab8ff;
    --passed: #6bd08a; --failed: #ff9088; --warned: #f0b45a;
  }
}
* { box-sizing: border-box; }
body {
  margin: 0 auto; padding: 1.5rem 1rem; max-width: 56rem; background: var(--paper); color: var(--ink);
  font: 1rem/1.5 "Segoe UI", system-ui, sans-serif; overflow-wrap: anywhere;
}
h1 { margin: 0 0 .25rem; font-size: 1.75rem; line-height: 1.25; }
h2 { margin: 0 0 .75rem; font-size: 1.25rem; line-height: 1.3; }
h3 { margin: 1.5rem 0 .5rem; font-size: 1rem; }
p { margin: 0 0 .5rem; }
a { color: var(--link); }
table { width: 100%; margin: 1rem 0; border-collapse: collapse; }
caption { text-align: left; color: var(--quiet); }
th, td { padding: .4rem .5rem; border-bottom: 1px solid var(--line); text-align: left; vertical-align: top; }
th { color: var(--quiet); font-weight: 600; overflow-wrap: normal; }
td .word { white-space: nowrap; }
article { margin: 1.5rem 0; padding: 1.25rem; border: 1px solid var(--line); border-radius: .5rem; background: var(--card); }
svg { flex: none; width: 1.25em; height: 1.25em; fill: none; stroke: currentColor; stroke-width: 2; }
.word { display: inline-flex; align-items: center; gap: .4em; font-weight: 600; overflow-wrap: normal; }
.verdict { margin: 0 0 .5rem; font-size: 1.375rem; line-height: 1.3; }
.passed { color: var(--passed); }
.failed { color: var(--failed); }
.warned { color: var(--warned); }
.quiet { color: var(--quiet); }
.said { white-space: pre-line; }
.answer { font-weight: 600; }
dl { display: grid; grid-template-columns: 13rem minmax(0, 1fr); gap: .25rem 1.25rem; margin: 0; }
dt { color: var(--quiet); }
dd { margin: 0; }
ol { margin: 0; padding-left: 1.5rem; }
li { margin-bottom: .75rem; }
figure { margin: 0 0 1rem; }
img { display: block; max-width: 100%; height: auto; border: 1px solid var(--line); }
figcaption { color: var(--quiet); font-size: .875rem; }
@media (max-width: 36rem) {
  body { padding: 1rem .75rem; }
  article { padding: 1rem .75rem; }
  dl { display: block; }
  dd { margin-bottom: .5rem; }
  th, td { padding: .4rem .25rem; }
  td .word { white-space: normal; }
  .wide { display: none; }
}
@media print {
  :root {
    color-scheme: light; font-size: 9.5pt;
    --paper: #ffffff; --card: #ffffff; --line: #888888; --ink: #000000; --quiet: #000000; --link: #000000;
    --passed: #000000; --failed: #000000; --warned: #000000;
  }
  @page { margin: 15mm; }
  body { max-width: none; padding: 0; }
  article { padding: 1rem 0 0; border: 0; border-top: 1px solid var(--line); border-radius: 0; }
  article + article { break-before: page; }
  h1, h2, h3, .verdict { break-after: avoid; }
  h2, tr, li, figure, dt, dd { break-inside: avoid; }
  img { max-height: 100mm; width: auto; }
}
)css";
