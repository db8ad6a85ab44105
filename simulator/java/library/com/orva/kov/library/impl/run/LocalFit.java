// SPDX-License-Identifier: MIT
package com.orva.kov.library.impl.run;

import java.util.ArrayList;
import java.util.List;

/**
 * A smooth curve through weighted points: at each point a parabola is fitted to its neighbours (local
 * regression, Cleveland 1979), and straight lines join what the parabolas have there.
 */
final class LocalFit {
  private static final class Point {
    final double x;
    final double y;
    final double weight;
    double smooth;

    Point(double x, double y, double weight) {
      this.x = x;
      this.y = y;
      this.weight = weight;
      this.smooth = y;
    }
  }

  private final List<Point> points = new ArrayList<>();
  private final int neighbours;

  LocalFit(int neighbours) {
    this.neighbours = neighbours;
  }

  /** In rising order of x. */
  void add(double x, double y, double weight) {
    points.add(new Point(x, y, weight));
  }

  void smooth() {
    for (int i = 0; i < points.size(); ++i) {
      points.get(i).smooth = parabolaAt(i);
    }
  }

  /** Beyond the ends the last line goes on; a single point is the same everywhere. */
  double at(double x, double withoutPoints) {
    if (points.size() < 2) {
      return points.isEmpty() ? withoutPoints : points.get(0).smooth;
    }
    int above = 1;
    while (above < points.size() - 1 && points.get(above).x < x) {
      ++above;
    }
    Point left = points.get(above - 1);
    Point right = points.get(above);
    return left.smooth + (right.smooth - left.smooth) * (x - left.x) / (right.x - left.x);
  }

  /** Weighted least squares of y = a + b u + c u² with u = x - x[i]; a is the answer. */
  private double parabolaAt(int i) {
    int from = Math.max(0, i - neighbours);
    int to = Math.min(points.size() - 1, i + neighbours);
    Point here = points.get(i);
    double reach = 1e-12 + 1.1 * Math.max(here.x - points.get(from).x, points.get(to).x - here.x);
    double[] moments = new double[5];
    double[] sums = new double[3];
    for (int k = from; k <= to; ++k) {
      Point point = points.get(k);
      double u = (point.x - here.x) / reach;
      double kernel = 1.0 - Math.abs(u * u * u);
      double weight = point.weight * kernel * kernel * kernel;
      double power = weight;
      for (int order = 0; order < moments.length; ++order) {
        moments[order] += power;
        if (order < sums.length) {
          sums[order] += power * point.y;
        }
        power *= u;
      }
    }
    return to - from < 3 ? here.y : constantTerm(moments, sums, here.y);
  }

  private static double constantTerm(double[] m, double[] s, double otherwise) {
    double whole =
        m[0] * (m[2] * m[4] - m[3] * m[3])
            - m[1] * (m[1] * m[4] - m[2] * m[3])
            + m[2] * (m[1] * m[3] - m[2] * m[2]);
    double part =
        s[0] * (m[2] * m[4] - m[3] * m[3])
            - m[1] * (s[1] * m[4] - s[2] * m[3])
            + m[2] * (s[1] * m[3] - s[2] * m[2]);
    double scale = m[0] * m[0] * m[0];
    return whole > 1e-12 * scale ? part / whole : otherwise;
  }
}
