#include "cli/report/html/page_style.h"

namespace morvane::cli {

const std::string_view page_style = R"css(
:root{color-scheme:light dark;--bg:#fff;--soft:#f3f5f8;--line:#d3d9e1;--fg:#1c2128;--dim:#545d68;
--link:#0a53b8;--bad:#b3141f;--bad-bg:#fdeced;--good:#11632a;--good-bg:#def5e4;--mark:#6d3bb5;
--mark-bg:#f1eafc;--warn:#7a4b00;--head:#7b8694;--ports:#12857b;--image:#3578d4;--vproc:#9a63c9;
--rest:#d1242f;--gap:#dfe4ea;--in:#0a6a62;--out:#8d4703;--in-bar:#1b9a8f;--out-bar:#d9832b;
--c0:#1f6feb;--c1:#1a7f37;--c2:#9a5b00;--c3:#8250df;--c4:#bf3989;--c5:#0b7285}
@media screen and (prefers-color-scheme:dark){:root{--bg:#14181d;--soft:#1d232a;--line:#3a434d;
--fg:#e6eaef;--dim:#a3adb8;--link:#7cb7ff;--bad:#ff9a94;--bad-bg:#3f1d1f;--good:#7ee29a;
--good-bg:#123620;--mark:#d2b6ff;--mark-bg:#33244d;--warn:#f0c36a;--head:#8d98a5;--ports:#2aa79b;
--image:#4b90ee;--vproc:#b583e0;--rest:#f0555e;--gap:#313a44;--in:#63d6cb;--out:#f2b277;
--in-bar:#2fb3a7;--out-bar:#d98a3a;--c0:#6cb0ff;--c1:#56d364;--c2:#e3b341;--c3:#c297ff;--c4:#ff8bd1;
--c5:#4dd0e1}}
*{box-sizing:border-box}
html{-webkit-text-size-adjust:100%;text-size-adjust:100%;scroll-padding-top:1rem}
body{margin:0 auto;max-width:76rem;padding:1rem clamp(1rem,4vw,3rem);background:var(--bg);
color:var(--fg);font:1rem/1.5 system-ui,"Segoe UI",Roboto,"DejaVu Sans","Liberation Sans",sans-serif;
overflow-wrap:anywhere}
h1{font-size:1.9rem;line-height:1.2;margin:0 0 .5rem}
h2{font-size:1.3rem;line-height:1.3;margin:2.25rem 0 .5rem;padding-top:.75rem;
border-top:1px solid var(--line)}
h3{font-size:1.05rem;display:inline;margin:0}
h4{font-size:.95rem;margin:1rem 0 .25rem}
p{margin:.35rem 0;max-width:75ch}
a{color:var(--link);text-underline-offset:.15em}
:focus-visible{outline:2px solid var(--link);outline-offset:2px}
details:target,tr:target{background:var(--mark-bg)}
ul,ol{list-style:none;margin:0;padding:0}
small{font-size:.8rem;color:var(--dim)}
i{font-style:normal}
bdi{white-space:break-spaces}
code,.mono,.port-table td:nth-child(4){font-family:ui-monospace,"DejaVu Sans Mono","Liberation Mono",monospace;font-size:.9em}
.dim{color:var(--dim)}
header>.dim{margin:0;font-size:.85rem}
.bad,.error{color:var(--bad)}
.warning{color:var(--warn)}
.mark{font-size:.75rem;font-weight:600;padding:0 .4em;border-radius:1em;white-space:nowrap}
.mark{color:var(--mark);background:var(--mark-bg)}
.verdict{padding:.1rem .7rem;border-radius:1em;print-color-adjust:exact}
.sound{color:var(--good);background:var(--good-bg)}
.doubtful{color:var(--warn);background:var(--soft)}
.unsound{color:var(--bad);background:var(--bad-bg)}
.facts,.fields{display:grid;grid-template-columns:repeat(auto-fill,minmax(9.5rem,1fr));
gap:.5rem 1.25rem;margin:1rem 0}
dt{font-size:.8rem;color:var(--dim)}
dd{margin:0}
.facts dd{font-size:.92rem;font-weight:600}
@media screen and (min-width:60rem){.facts{grid-template-columns:repeat(4,1fr)}}
.fields{grid-template-columns:repeat(auto-fill,minmax(11rem,1fr));gap:.35rem 1.25rem;margin:.5rem 0}
nav ul{display:flex;flex-wrap:wrap;gap:.25rem 1.25rem;margin-top:.75rem}
nav a{display:inline-block;padding:.2rem 0}
summary{cursor:pointer;padding:.25rem 0}
.findings{margin:.25rem 0 .5rem}
.findings li{padding:.2rem 0;border-bottom:1px solid var(--line)}
.key{display:inline-block;width:.85em;height:.85em;border-radius:2px;vertical-align:-.05em;
print-color-adjust:exact}
.key.head{background:var(--head)}.key.ports{background:var(--ports)}
.key.image{background:var(--image)}.key.vproc{background:var(--vproc)}
.key.rest,.key.shared{background:var(--rest)}.key.in{background:var(--in-bar)}
.key.biggest,.key.changed{background:var(--mark)}.key.out{background:var(--out-bar)}.key.changed{height:4px;vertical-align:middle}
.key.dagbin{background:var(--fg);width:3px;height:1em}
svg{display:block;width:100%;overflow:visible}
rect.head{fill:var(--head)}rect.ports{fill:var(--ports)}rect.image{fill:var(--image)}
rect.vproc{fill:var(--vproc)}rect.rest,rect.shared{fill:var(--rest)}rect.gap{fill:var(--gap)}
rect.biggest,rect.changed{fill:var(--mark)}rect.in{fill:var(--in-bar)}rect.out{fill:var(--out-bar)}rect.dagbin{fill:var(--fg)}
svg.axis{height:40px;margin-top:.75rem;background:var(--soft)}
svg.few rect.image{stroke:var(--bg);stroke-width:1}
svg.bar{height:14px;background:linear-gradient(var(--line),var(--line)) 0 50%/100% 1px no-repeat}
svg.ports{height:22px;background:var(--soft)}
svg.ports rect{stroke:var(--bg);stroke-width:.5}
svg.file{height:48px;margin:.75rem 0}
svg.file rect{stroke:var(--bg);stroke-width:1}
svg.file a:hover rect,svg.file a:focus-visible rect{stroke:var(--fg);stroke-width:2}
.ends{display:flex;justify-content:space-between;font-size:.8rem;color:var(--dim)}
.bars li{padding:.35rem 0;border-bottom:1px solid var(--line)}
.bars li>div{display:flex;flex-wrap:wrap;gap:0 .75rem;align-items:baseline;margin-bottom:.15rem;
font-size:.92rem}
.bars .fold{color:var(--dim);font-size:.85rem;text-align:center;background:var(--soft)}
.long li{content-visibility:auto;contain-intrinsic-size:auto 4rem}
.long .row{content-visibility:visible}
.long{max-height:70vh;overflow-y:auto;border:1px solid var(--line);border-radius:6px;
padding:.25rem .6rem;margin:.75rem 0}
.net{margin:.75rem 0}
.row{position:relative}
.row>svg{position:absolute;left:0;top:0;height:100%}
.narrow .row{padding-left:56px}.narrow .row>svg{width:56px}
.wide .row{padding-left:112px}.wide .row>svg{width:112px}
.row path{fill:none;stroke-width:1.75px;stroke:var(--dim)}
.row .c0{stroke:var(--c0)}.row .c1{stroke:var(--c1)}.row .c2{stroke:var(--c2)}
.row .c3{stroke:var(--c3)}.row .c4{stroke:var(--c4)}.row .c5{stroke:var(--c5)}
.row .differs{stroke:var(--rest);stroke-width:3px;stroke-dasharray:4 2}
.row>div{display:flex;flex-wrap:wrap;gap:0 .75rem;align-items:baseline;padding:.1rem .75rem;
border:solid var(--line);border-width:0 1px}
.net .head>div{background:var(--soft);border-width:1px;border-radius:6px 6px 0 0}
.net .head{margin:0}
.port .in,.port .out{flex:none;width:1.8rem;font-size:.85rem;font-weight:600}
i.in{color:var(--in)}i.out{color:var(--out)}
.dims{font-variant-numeric:tabular-nums}
.flow{margin-left:auto;color:var(--dim);text-align:right}
.space{height:18px}
.space::before{content:"";position:absolute;top:0;right:0;left:56px;height:6px;
border:solid var(--line);border-width:0 1px 1px;border-radius:0 0 6px 6px}
.wide .space::before{left:112px}
.thin{font-size:.88rem;margin:0}
.thin .row>div{border:0;display:block;padding:.1rem .4rem;white-space:nowrap;overflow:hidden;
text-overflow:ellipsis}
.thin .row>div>*{margin-right:.6rem}
.thin bdi{white-space:pre}
.thin wbr{display:none}
.thin path{stroke-width:1.25px}
table{border-collapse:collapse;width:100%;font-size:.92rem;margin:.25rem 0 .75rem;
font-variant-numeric:tabular-nums}
th,td{text-align:left;vertical-align:top;padding:.3rem .75rem .3rem 0;border-bottom:1px solid var(--line)}
th{font-weight:600}
td,thead th{overflow-wrap:break-word}
thead th{font-size:.8rem;color:var(--dim)}
th small,td small{display:block;font-weight:400}
.port-table td small{font-family:system-ui,"DejaVu Sans","Liberation Sans",sans-serif}
th i{font-size:.85rem}
td .bad,small.bad{color:var(--bad)}
.parts th,.variables th,.smbs th{font-weight:400}
.dvi{border:1px solid var(--line);border-radius:6px;margin:.5rem 0;padding:.25rem .75rem}
.dvi[open]{padding-bottom:.75rem}
.group>summary{font-weight:600}
footer{margin:2rem 0 1rem;color:var(--dim);font-size:.85rem}
@media screen and (max-width:44rem){
body{font-size:.95rem}
.row>div{font-size:.87rem;gap:0 .6rem}
.thin .row>div{white-space:normal}
.thin bdi{white-space:break-spaces}
.flow{margin-left:0;text-align:left}
table,tbody{display:block}
thead{position:absolute;width:1px;height:1px;overflow:hidden;clip-path:inset(50%)}
tr{display:grid;grid-template-columns:1fr 1fr;gap:.1rem .75rem;padding:.4rem 0;
border-bottom:1px solid var(--line)}
th,td{border:0;padding:0}
th[scope=row]{grid-column:1/-1}
td::before{color:var(--dim);font-size:.8rem;font-family:inherit}
.parts tr{grid-template-columns:1fr 2fr 1fr}
.port-table td:nth-child(2)::before{content:"Dims "}
.port-table td:nth-child(3)::before{content:"Format "}
.port-table td:nth-child(4)::before{content:"Offset "}
.variables td:nth-child(2)::before{content:"Bit offset "}
.variables td:nth-child(3)::before{content:"Bits "}
.smbs td:nth-child(2)::before{content:"Byte offset "}
}
@media print{
@page{margin:14mm}
.thin .row>div{white-space:normal}
.thin bdi{white-space:break-spaces}
body{font-size:9.5pt;max-width:none;padding:0}
nav{display:none}
table{font-size:8.5pt}
.long{max-height:none;overflow:visible;border:0;padding:0}
h2,h3,h4,summary{break-after:avoid}
tr,.bars li,.net>li{break-inside:avoid}
a{color:inherit;text-decoration:none}
}
)css";

}  // namespace morvane::cli
