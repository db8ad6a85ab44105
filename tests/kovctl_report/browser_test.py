#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Reports in a real browser: browser_test.py WRITE_SAMPLE CHROMIUM INTERACTIVE [KEEP_FOLDER]."""
import functools
import http.server
import json
import os
import shutil
import subprocess
import sys
import tempfile
import threading
import unittest

import png
from devtools import Browser

WRITE_SAMPLE, CHROMIUM, INTERACTIVE = sys.argv[1:4]
KEEP = sys.argv[4] if len(sys.argv) > 4 else None
INTERACTIVE = INTERACTIVE == '1'
BLUE, ORANGE = (0x00, 0x72, 0xB2), (0xD5, 0x5E, 0x00)

# `./test --all` installs whatever a test needs: there, what is missing is a failure.
WANTS_ALL = bool(os.environ.get('L5KOV_TEST_ALL'))

if not CHROMIUM or not os.path.exists(CHROMIUM):
    print('Chromium (Debian package chromium) is not installed')
    sys.exit(1 if WANTS_ALL else 77)


class Server(http.server.ThreadingHTTPServer):
    """Counts what is asked of it."""

    def __init__(self):
        class Handler(http.server.BaseHTTPRequestHandler):
            def do_GET(handler):
                handler.server.asked.append(handler.path)
                handler.send_response(404)
                handler.end_headers()

            def log_message(handler, *_):
                pass

        super().__init__(('127.0.0.1', 0), Handler)
        self.asked = []
        threading.Thread(target=self.serve_forever, daemon=True).start()

    def url(self):
        return f'http://127.0.0.1:{self.server_address[1]}/'


class Reports(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.mkdtemp(prefix='kovctl-report-')
        for name in ('calibration', 'verification', 'canceled', 'hostile', 'complete'):
            subprocess.run([WRITE_SAMPLE, name, 'report', cls.path(name)], check=True)
        cls.browser = Browser(CHROMIUM)
        cls.browser.__enter__()

    @classmethod
    def tearDownClass(cls):
        cls.browser.__exit__()
        shutil.rmtree(cls.folder)

    @classmethod
    def path(cls, name, suffix='html'):
        return os.path.join(cls.folder, f'{name}.{suffix}')

    def open(self, name, scripts=True):
        self.browser.open('file://' + self.path(name), scripts)

    def keep(self, name, data):
        if KEEP:
            os.makedirs(KEEP, exist_ok=True)
            with open(os.path.join(KEEP, name), 'wb') as file:
                file.write(data)

    def box(self, selector):
        return self.browser.evaluate(
            f'(() => {{ const b = document.querySelector({json.dumps(selector)})'
            '.getBoundingClientRect(); return [b.left + scrollX, b.top + scrollY, b.right + scrollX,'
            ' b.bottom + scrollY].map(Math.round); })()')

    def test_asks_for_nothing_but_itself(self):
        for name in ('calibration', 'hostile', 'complete'):
            self.open(name)
            self.assertEqual(self.browser.requests(), ['file://' + self.path(name)], name)
            self.assertEqual(self.browser.complaints(), [], name)

    def test_the_policy_stops_a_page_that_asks(self):
        """The control of the test above: the same page, made to ask, with and without its policy."""
        server = Server()
        with open(self.path('calibration'), encoding='utf-8') as file:
            page = file.read()
        asking = page.replace('<main>', f'<main><img src="{server.url()}a.png">', 1)
        begin = asking.index('<meta http-equiv')
        free = asking[:begin] + asking[asking.index('>', begin) + 1:]
        for name, text in (('asking', asking), ('free', free)):
            with open(self.path(name), 'w', encoding='utf-8') as file:
                file.write(text)
        self.open('asking')
        self.assertEqual(server.asked, [])
        self.assertTrue(any('Content Security Policy' in c for c in self.browser.complaints()))
        self.open('free')
        self.assertEqual(server.asked, ['/a.png'])
        server.shutdown()
        server.server_close()

    def test_hostile_texts_stay_texts(self):
        self.open('hostile')
        evaluate = self.browser.evaluate
        self.assertNotEqual(evaluate('document.title'), 'owned')
        self.assertTrue(evaluate('document.title').startswith('Calibration report'))
        self.assertEqual(evaluate('document.images.length'), 0)
        self.assertEqual(evaluate('document.querySelectorAll("main script, main style").length'), 0)
        self.assertIn('<img src=x', evaluate('document.querySelector(".subject bdi").textContent'))
        json.loads(evaluate('document.getElementById("run-record").textContent'))
        self.assertEqual(evaluate('document.querySelectorAll("section").length'), 9)

    def test_drawings_show_without_javascript(self):
        self.open('calibration', scripts=False)
        self.assertEqual(self.browser.evaluate('document.querySelectorAll(".is-live").length'), 0)
        self.assertEqual(self.browser.evaluate(
            '[...document.querySelectorAll("svg")].filter(s => s.getBoundingClientRect().width > 300)'
            '.length'), 6)
        self.keep('no-javascript.png', self.browser.screenshot())
        picture = self.browser.screenshot(self.box('#chart-luminance svg'))
        self.assertGreater(png.count(picture, BLUE), 200)
        self.assertGreater(png.count(picture, ORANGE), 400)

    def test_marks_lie_where_the_axis_says(self):
        """Reads the values back from the places on the page and compares them with the record."""
        self.open('calibration', scripts=False)
        points = self.browser.evaluate('''(() => {
          const svg = document.querySelector('#chart-luminance svg');
          const at = (e) => { const b = e.getBoundingClientRect(); return (b.left + b.right) / 2; };
          const level = (e) => { const b = e.getBoundingClientRect(); return (b.top + b.bottom) / 2; };
          const ticks = [...svg.querySelectorAll('.x-axis text[data-value]')]
            .map(t => [Number(t.textContent), at(t)]);
          const grid = [...svg.querySelectorAll('.grid line.major')];
          return { ticks, circles: [...svg.querySelectorAll('[data-series=measured] circle')]
            .map(c => [at(c), level(c), c.textContent]) }; })()''')
        (v0, x0), (v1, x1) = points['ticks'][0], points['ticks'][-1]
        record = json.loads(self.browser.evaluate(
            'document.getElementById("run-record").textContent'))
        verified = [p for p in record['patches'] if p['role'] == 'verify']
        self.assertEqual(len(points['circles']), len(verified))
        for (x, _, note), patch in zip(points['circles'], verified):
            self.assertAlmostEqual(v0 + (x - x0) / (x1 - x0) * (v1 - v0), patch['level'], delta=0.6)
            self.assertIn('%.4g cd/m²' % patch['luminance'], note)
        heights = [y for _, y, _ in points['circles']]
        self.assertEqual(heights, sorted(heights, reverse=True))

    @unittest.skipUnless(INTERACTIVE or WANTS_ALL, 'this build has no uPlot')
    def test_charts_come_alive(self):
        self.open('calibration')
        self.assertEqual(self.browser.evaluate(
            '[...document.querySelectorAll(".is-live")].map(f => f.id)'),
            ['chart-luminance', 'chart-deviation', 'chart-jnd', 'chart-trend-luminance',
             'chart-trend-sensor'])
        self.keep('report.png', self.browser.screenshot())
        picture = self.browser.screenshot(self.box('#chart-luminance canvas'))
        self.assertGreater(png.count(picture, BLUE), 200)
        self.assertEqual(self.browser.evaluate(
            'getComputedStyle(document.querySelector("#chart-luminance .drawn")).display'), 'none')

    @unittest.skipUnless(INTERACTIVE or WANTS_ALL, 'this build has no uPlot')
    def test_hover_shows_the_value_under_the_pointer(self):
        self.open('calibration')
        left, top, right, bottom = self.plot_area()
        record = json.loads(self.browser.evaluate(
            'document.getElementById("run-record").textContent'))
        wanted = [p for p in record['patches'] if p['role'] == 'verify' and p['level'] == 120][0]
        self.browser.mouse('mouseMoved', left + (right - left) * 120 / 255, (top + bottom) / 2)
        legend = self.legend()
        self.assertEqual(legend['Gray level'], '120')
        self.assertAlmostEqual(float(legend['Measured']), wanted['luminance'], delta=0.002)

    @unittest.skipUnless(INTERACTIVE or WANTS_ALL, 'this build has no uPlot')
    def test_drag_zooms_and_double_click_resets(self):
        self.open('calibration')
        left, top, right, bottom = self.plot_area()
        middle = (top + bottom) / 2
        whole = self.level_at_right_end(right, middle)
        self.assertEqual(whole, 255)
        quarter = left + (right - left) / 4
        self.browser.mouse('mouseMoved', left + 2, middle)
        self.browser.mouse('mousePressed', left + 2, middle, button='left', clickCount=1)
        self.browser.mouse('mouseMoved', quarter, middle, button='left', buttons=1)
        self.browser.mouse('mouseReleased', quarter, middle, button='left', clickCount=1)
        self.assertLess(self.level_at_right_end(right, middle), 70)
        for clicks in (1, 2):
            self.browser.mouse('mousePressed', quarter, middle, button='left', clickCount=clicks)
            self.browser.mouse('mouseReleased', quarter, middle, button='left', clickCount=clicks)
        self.assertEqual(self.level_at_right_end(right, middle), 255)

    def plot_area(self):
        self.browser.evaluate('document.querySelector("#chart-luminance").scrollIntoView()')
        return self.browser.evaluate(
            '(() => { const b = document.querySelector("#chart-luminance .u-over")'
            '.getBoundingClientRect(); return [b.left, b.top, b.right, b.bottom]; })()')

    def legend(self):
        return self.browser.evaluate('''new Promise(done => requestAnimationFrame(() => done(
          Object.fromEntries([...document.querySelectorAll('#chart-luminance .u-series')].map(r =>
            [r.querySelector('.u-label').textContent, r.querySelector('.u-value').textContent])))))''')

    def level_at_right_end(self, right, middle):
        self.browser.mouse('mouseMoved', right - 1, middle)
        return float(self.legend()['Gray level'])

    def test_narrow_window_needs_no_sideways_scrolling(self):
        self.browser.call('Emulation.setDeviceMetricsOverride', width=420, height=900,
                          deviceScaleFactor=1, mobile=False)
        self.open('calibration')
        self.assertLessEqual(self.browser.evaluate('document.documentElement.scrollWidth'), 420)
        self.keep('narrow.png', self.browser.screenshot())
        self.browser.call('Emulation.setDeviceMetricsOverride', width=1120, height=1600,
                          deviceScaleFactor=1, mobile=False)

    def test_structure_serves_those_who_cannot_see(self):
        self.open('complete')
        tree = self.browser.call('Accessibility.getFullAXTree')['nodes']

        def of(role):
            return [n.get('name', {}).get('value', '') for n in tree
                    if not n.get('ignored') and n.get('role', {}).get('value') == role]

        self.assertEqual(self.browser.evaluate('document.documentElement.lang'), 'en')
        headings = self.browser.evaluate(
            '[...document.querySelectorAll("h1, h2, h3")].map(h => Number(h.tagName[1]))')
        self.assertEqual(headings[0], 1)
        self.assertTrue(all(b - a <= 1 for a, b in zip(headings, headings[1:])), headings)
        pictures = of('image') + of('img')
        self.assertEqual(len(pictures), 6)
        self.assertTrue(all(pictures), pictures)
        self.assertIn('All measured points', of('heading'))

    def test_prints(self):
        for name, headline in (('calibration', 'Within limits'), ('verification', 'Outside limits')):
            for scripts in (True, False):
                with self.subTest(name=name, scripts=scripts):
                    self.open(name, scripts)
                    self.check_pdf(name, headline)

    def check_pdf(self, name, headline):
        if not shutil.which('pdftotext') and not WANTS_ALL:
            self.skipTest('pdftotext and pdfinfo (Debian package poppler-utils) are not installed')
        data = self.browser.pdf()
        self.keep(name + '.pdf', data)
        with open(self.path(name, 'pdf'), 'wb') as file:
            file.write(data)
        info = subprocess.run(['pdfinfo', file.name], capture_output=True, text=True, check=True)
        fields = dict(line.split(':', 1) for line in info.stdout.splitlines() if ':' in line)
        self.assertIn(int(fields['Pages']), range(4, 8))
        self.assertIn('A4', fields['Page size'])
        text = functools.partial(self.text_of, file.name)
        first = text('-l', '1')
        for wanted in ('Simulated run.', headline, 'KV-320M', 'A1200417', 'M. Example',
                       '2026-11-21 08:29:31 UTC', 'Contrast response, largest deviation'):
            self.assertIn(wanted, first)
        whole = text()
        for wanted in ('Luminance, cd/m²', 'JND per gray level', 'All measured points', 'a' * 64):
            self.assertIn(wanted, whole)
        self.assertNotIn('Drag to zoom', whole)

    def text_of(self, path, *options):
        return subprocess.run(['pdftotext', '-layout', *options, path, '-'], capture_output=True,
                              text=True, check=True).stdout


if __name__ == '__main__':
    unittest.main(argv=sys.argv[:1], verbosity=2)
