// SPDX-License-Identifier: MIT
// Puts zoom and hover into the charts: the same numbers as in the drawings, drawn again by uPlot.
// The drawings stay for print.
(function () {
  'use strict';

  const element = document.getElementById('chart-data');
  if (!element || typeof uPlot === 'undefined') return;
  const css = getComputedStyle(document.documentElement);
  const colourOf = (name) => css.getPropertyValue('--' + name).trim() || '#1c2430';
  const font = '12px ' + getComputedStyle(document.body).fontFamily;

  // One column of x for all series, gaps where a series has no value.
  function align(series) {
    return uPlot.join(series.map((s) => [s.x, s.y]));
  }

  function decimals(value) {
    if (value == null) return '–';
    const text = Number(value.toPrecision(5)).toString();
    return text.replace('-', '−');
  }

  function day(seconds) {
    return seconds == null ? '–' : new Date(seconds * 1000).toISOString().slice(0, 10);
  }

  function seriesOptions(s) {
    const colour = colourOf(s.name);
    return {
      label: s.label,
      stroke: colour,
      width: s.marks ? 1.2 : 1.8,
      dash: s.dashes ? [7, 4] : undefined,
      spanGaps: true,
      paths: s.line ? undefined : () => null,
      points: { show: s.marks, size: s.name === 'measured' || s.name === 'sensor' ? 7 : 5,
                fill: s.name === 'measured' || s.name === 'sensor' ? '#fff' : colour },
      value: (u, v) => decimals(v),
    };
  }

  // The pointer snaps to places where something was measured, not to the many points of a curve.
  function snap(chart, x) {
    const measured = new Set(chart.series.filter((s) => s.marks).flatMap((s) => s.x));
    const places = x.map((v, i) => [v, i]).filter(([v]) => measured.has(v));
    return (u, series, nearest, value) => {
      let best = nearest;
      let distance = Infinity;
      for (const [v, i] of places) {
        if (Math.abs(v - value) >= distance) continue;
        distance = Math.abs(v - value);
        best = i;
      }
      return best;
    };
  }

  function drawBand(band) {
    return (u) => {
      const top = u.valToPos(band[1], 'y', true);
      const bottom = u.valToPos(band[0], 'y', true);
      u.ctx.save();
      u.ctx.fillStyle = 'rgba(0, 158, 115, 0.11)';
      u.ctx.fillRect(u.bbox.left, top, u.bbox.width, bottom - top);
      u.ctx.restore();
    };
  }

  function options(chart, width, x) {
    const axis = { stroke: colourOf('quiet'), font, labelFont: font, labelSize: 18, labelGap: 0,
                   grid: { stroke: '#e6eaef', width: 1 }, ticks: { stroke: '#c3cad3', width: 1 } };
    return {
      width,
      height: Math.round(width * chart.aspect),
      cursor: { drag: { x: true, y: false }, y: false, dataIdx: snap(chart, x) },
      scales: {
        x: { time: chart.time, range: (u, low, high) =>
          low == null || low === u.data[0][0] && high === u.data[0][u.data[0].length - 1]
            ? chart.x : [low, high] },
        y: { distr: chart.logarithmic ? 3 : 1, range: chart.y },
      },
      axes: [
        Object.assign({ label: chart.xLabel, size: 32 }, axis,
                      chart.time ? { values: (u, ticks) => ticks.map(day), space: 90 } : {},
                      chart.levels ? { incrs: [1, 5, 15, 30, 60], space: 40 } : {}),
        Object.assign({ label: chart.yLabel, size: 54 }, axis,
                      chart.logarithmic ? {} : { values: (u, ticks) => ticks.map(decimals) }),
      ],
      series: [{ label: chart.xLabel, value: (u, v) => chart.time ? day(v) : decimals(v) }]
        .concat(chart.series.map(seriesOptions)),
      hooks: chart.band ? { drawClear: [drawBand(chart.band)] } : {},
    };
  }

  for (const chart of JSON.parse(element.textContent)) {
    const figure = document.getElementById('chart-' + chart.id);
    if (!figure) continue;
    const live = document.createElement('div');
    live.className = 'live';
    figure.appendChild(live);
    figure.classList.add('is-live');
    const data = align(chart.series);
    const plot = new uPlot(options(chart, live.clientWidth, data[0]), data, live);
    plot.root.setAttribute('role', 'img');
    plot.root.setAttribute('aria-label', figure.querySelector('desc').textContent);
    const hint = document.createElement('p');
    hint.className = 'hint';
    hint.textContent = 'Drag to zoom, double-click to reset.';
    live.appendChild(hint);
    new ResizeObserver(() => {
      const width = live.clientWidth;
      if (width > 0 && width !== plot.width)
        plot.setSize({ width, height: Math.round(width * chart.aspect) });
    }).observe(live);
  }
})();
