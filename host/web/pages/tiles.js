// Tiles, each with a read-out, as large as their area allows.

/// `parent`: the element that they fill. `readouts`: a Ferolin.Readouts.
Ferolin.Tiles = function (parent, readouts) {
  'use strict';

  var SMALLEST_FIGURE = 26;
  var GAP = 8;
  var SCROLLING_WIDTH = 160;
  var SCROLLING_HEIGHT = 72;

  /// Columns that make the figures largest; `size` in pixels.
  function bestGrid(width, height, count) {
    var best = { size: 0, columns: 1, rows: 1 };
    for (var columns = 1; columns <= Math.min(count, 5); columns++) {
      var rows = Math.ceil(count / columns);
      var size = Math.min((height / rows - GAP) * 0.48, (width / columns - GAP - 20) / 4.4, 120);
      if (size > best.size) {
        best = { size: size, columns: columns, rows: rows };
      }
    }
    return best;
  }

  function add(key, width, height, size) {
    var tile = document.createElement('div');
    tile.className = 'tile ' + key;
    tile.setAttribute('data-key', key);
    tile.style.width = width + 'px';
    tile.style.height = height + 'px';
    var label = document.createElement('div');
    label.className = 'label';
    label.textContent = readouts.tileName(readouts.findTile(key));
    label.style.fontSize = Math.max(14, Math.min(24, size * 0.42)) + 'px';
    var value = document.createElement('div');
    value.className = 'value';
    value.setAttribute('data-size', Math.floor(size));
    value.style.fontSize = Math.floor(size) + 'px';
    value.appendChild(document.createElement('span'));
    value.appendChild(document.createElement('small'));
    tile.appendChild(label);
    tile.appendChild(value);
    parent.appendChild(tile);
  }

  /// Positions and Russian units may be wider than the tile.
  function shrinkToFit(value) {
    var length = String(value.textContent.length);
    if (value.getAttribute('data-length') === length) {
      return;
    }
    value.setAttribute('data-length', length);
    var size = Number(value.getAttribute('data-size'));
    value.style.fontSize = size + 'px';
    if (value.scrollWidth > value.clientWidth) {
      value.style.fontSize = Math.floor(size * value.clientWidth / value.scrollWidth) + 'px';
    }
  }

  /// Tiles of the last row share its width.
  function addAll(keys, grid, width, height, size) {
    keys.forEach(function (key, index) {
      var inRow = Math.min(grid.columns, keys.length - index + index % grid.columns);
      add(key, Math.floor(width / inRow) - GAP, height, size);
    });
  }

  /// `overflow`: what becomes of tiles for which there is no room.
  this.fill = function (keys, width, height, overflow) {
    var count = keys.length;
    var grid = bestGrid(width, height, count);
    while (overflow === Ferolin.Tiles.AS_MANY_AS_FIT && count > 0 && grid.size < SMALLEST_FIGURE) {
      count--;
      grid = bestGrid(width, height, count);
    }
    parent.textContent = '';
    if (grid.size >= SMALLEST_FIGURE) {
      addAll(keys.slice(0, count), grid, width, Math.floor(height / grid.rows) - GAP, grid.size);
    } else {
      grid.columns = Math.max(1, Math.floor(width / SCROLLING_WIDTH));
      addAll(keys.slice(0, count), grid, width, SCROLLING_HEIGHT, SMALLEST_FIGURE);
    }
  };

  /// `latest`: the newest read-outs, null while there are none.
  this.show = function (latest) {
    Ferolin.forEach(parent.children, function (tile) {
      var shown = readouts.tileValue(readouts.findTile(tile.getAttribute('data-key')), latest);
      var value = tile.lastChild;
      Ferolin.setText(value.firstChild, shown[0]);
      Ferolin.setText(value.lastChild, shown[1]);
      shrinkToFit(value);
    });
  };
};

// What becomes of tiles for which there is no room.
Ferolin.Tiles.AS_MANY_AS_FIT = 0;
Ferolin.Tiles.SCROLLING = 1;
