# SPDX-License-Identifier: MIT
"""A headless Chromium driven through its DevTools pipe; nothing but the standard library."""
import base64
import json
import os
import select
import shutil
import subprocess
import tempfile
import time

FLAGS = ['--headless', '--no-sandbox', '--disable-gpu', '--disable-quic', '--no-first-run',
         '--disable-background-networking', '--disable-component-update', '--disable-sync',
         '--disable-default-apps', '--disable-extensions', '--hide-scrollbars',
         '--remote-debugging-pipe']


class Browser:
    """One browser with one page and a profile of its own; use it in a with statement."""

    def __init__(self, program, width=1120, height=1600):
        self.profile = tempfile.mkdtemp(prefix='kovctl-chromium-')
        to_child, self.to_browser = os.pipe()
        self.from_browser, from_child = os.pipe()
        keep = os.dup(to_child), os.dup(from_child)  # well above 3 and 4

        def connect():
            os.dup2(keep[0], 3)
            os.dup2(keep[1], 4)

        self.process = subprocess.Popen(
            [program, *FLAGS, '--user-data-dir=' + self.profile,
             f'--window-size={width},{height}', 'about:blank'],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, close_fds=False,
            preexec_fn=connect)
        for fd in (to_child, from_child, *keep):
            os.close(fd)
        self.buffer = b''
        self.last_id = 0
        self.events = []
        self.page = None
        self._attach(width, height)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        try:
            self.call('Browser.close', to_page=False)
        except (OSError, TimeoutError, RuntimeError):
            pass
        try:
            self.process.wait(timeout=10)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()
        os.close(self.to_browser)
        os.close(self.from_browser)
        shutil.rmtree(self.profile, ignore_errors=True)

    def _attach(self, width, height):
        targets = self.call('Target.getTargets', to_page=False)['targetInfos']
        page = next(t for t in targets if t['type'] == 'page')
        self.page = self.call('Target.attachToTarget', to_page=False,
                              targetId=page['targetId'], flatten=True)['sessionId']
        for domain in ('Page', 'Network', 'Log', 'Runtime'):
            self.call(domain + '.enable')
        self.call('Emulation.setDeviceMetricsOverride', width=width, height=height,
                  deviceScaleFactor=1, mobile=False)

    def _read(self, deadline):
        while b'\0' not in self.buffer:
            ready, _, _ = select.select([self.from_browser], [], [],
                                        max(0.0, deadline - time.monotonic()))
            if not ready:
                raise TimeoutError('the browser does not answer')
            data = os.read(self.from_browser, 1 << 20)
            if not data:
                raise RuntimeError('the browser has ended')
            self.buffer += data
        message, self.buffer = self.buffer.split(b'\0', 1)
        return json.loads(message)

    def call(self, method, to_page=True, **parameters):
        self.last_id += 1
        message = {'id': self.last_id, 'method': method, 'params': parameters}
        if to_page and self.page:
            message['sessionId'] = self.page
        os.write(self.to_browser, json.dumps(message).encode() + b'\0')
        deadline = time.monotonic() + 60
        while True:
            answer = self._read(deadline)
            if answer.get('id') == self.last_id:
                if 'error' in answer:
                    raise RuntimeError(f"{method}: {answer['error']['message']}")
                return answer['result']
            if 'method' in answer:
                self.events.append(answer)

    def open(self, url, scripts=True):
        self.events.clear()
        self.call('Emulation.setScriptExecutionDisabled', value=not scripts)
        self.call('Page.navigate', url=url)
        deadline = time.monotonic() + 60
        while not any(e['method'] == 'Page.loadEventFired' for e in self.events):
            answer = self._read(deadline)
            if 'method' in answer:
                self.events.append(answer)
        self.call('Page.getLayoutMetrics')  # what the page did at once has happened now

    def evaluate(self, expression):
        """The value of an expression; of ours, so it runs also where the page's scripts may not."""
        result = self.call('Runtime.evaluate', expression=expression, returnByValue=True,
                           awaitPromise=True)
        if 'exceptionDetails' in result:
            raise RuntimeError(json.dumps(result['exceptionDetails'])[:500])
        return result['result'].get('value')

    def mouse(self, kind, x, y, **more):
        self.call('Input.dispatchMouseEvent', type=kind, x=x, y=y, **more)

    def requests(self):
        return [e['params']['request']['url'] for e in self.events
                if e['method'] == 'Network.requestWillBeSent']

    def complaints(self):
        """What the page wrote to the console or the browser to its log."""
        found = [e['params']['entry']['text'] for e in self.events
                 if e['method'] == 'Log.entryAdded']
        found += [json.dumps(e['params']) for e in self.events
                  if e['method'] in ('Runtime.exceptionThrown', 'Runtime.consoleAPICalled')]
        return found

    def screenshot(self, box=None):
        """The whole page, or (left, top, right, bottom) of it."""
        more = {}
        if box:
            more['clip'] = {'x': box[0], 'y': box[1], 'width': box[2] - box[0],
                            'height': box[3] - box[1], 'scale': 1}
        data = self.call('Page.captureScreenshot', format='png', captureBeyondViewport=True,
                         **more)
        return base64.b64decode(data['data'])

    def pdf(self):
        data = self.call('Page.printToPDF', printBackground=True, preferCSSPageSize=True)
        return base64.b64decode(data['data'])
