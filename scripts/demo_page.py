# SPDX-License-Identifier: Apache-2.0
"""The page of scripts/demo: every job with its pictures, and which option caused which line."""

import html

PAGE = """<!DOCTYPE html>
<html lang="en">
<meta charset="utf-8">
<title>kvfilter: what becomes of a job</title>
<style>
  body { font: 15px/1.45 sans-serif; color: #222; max-width: 72rem; margin: 2rem auto;
         padding: 0 1rem; }
  h1 { font-size: 1.6rem; }
  section { border-top: 1px solid #ccc; padding: 1rem 0; display: grid; gap: 0 2rem;
            grid-template-columns: minmax(0, 1fr) auto; }
  section > * { grid-column: 1; min-width: 0; }
  h2 { font-size: 1.15rem; margin: 0; }
  h2 small { font-weight: normal; color: #667; }
  pre { background: #f4f4f0; padding: .5rem .75rem; white-space: pre-wrap;
        margin: .5rem 0; }
  table { border-collapse: collapse; width: 100%; font-size: 13px; }
  th, td { text-align: left; vertical-align: top; padding: .2rem .8rem .2rem 0; }
  th { font-family: monospace; background: #eef3fa; padding-left: .4rem; }
  td:first-child { font-family: monospace; overflow-wrap: anywhere; width: 55%;
                   padding-left: .4rem; }
  td { color: #445; }
  .pictures { grid-column: 2; grid-row: 1 / span 9; display: flex; gap: 1rem; }
  figure { margin: 0; text-align: center; color: #667; font-size: 13px; }
  img { height: 240px; border: 1px solid #bbb; display: block; margin-bottom: .3rem; }
</style>
<h1>What becomes of a job</h1>
<p>Each job went through the filters that CUPS chooses for it and then through kvfilter. An option
is shown with the lines that the job would lack without it.</p>
"""


def write_page(path, jobs, queue):
    """Leaves the page at `path`; the jobs' pictures lie beside it."""
    body = "".join(section(job) for job in jobs)
    end = f"<section><h2>A queue of your own</h2><pre>{html.escape(queue)}</pre></section>\n"
    path.write_text(f"{PAGE}{body}{end}</html>\n", encoding="utf-8")


def section(job):
    name = html.escape(job["name"])
    rows = "".join(cause(*row) for row in job["causes"])
    pictures = "".join(
        f'<figure><img src="{html.escape(picture)}" alt="{name}, a page {when}">{when}</figure>'
        for when, picture in job["pictures"].items())
    return (f'<section id="{name}"><h2>{html.escape(job["words"])} '
            f'<small>{html.escape(job["model"].upper())}</small></h2>'
            f'<pre>{html.escape(job["command"])}</pre>'
            f'<div><table>{rows}</table></div>'
            f'<p><a href="{name}.job">the job</a>, <a href="{name}.log">the log</a></p>'
            f'<div class="pictures">{pictures}</div></section>\n')


def cause(option, is_default, lines):
    remark = " (default of the queue)" if is_default else ""
    return (f'<tr><th colspan="2">{html.escape(option)}{remark}</th></tr>' +
            "".join(f"<tr><td>{html.escape(line)}</td><td>{html.escape(meaning)}</td></tr>"
                    for line, meaning in lines))
