// Writes the points near borders with which the look-up of a country is measured: border_points.txt.
//
// usage: node make_border_points.mjs FOLDER > border_points.txt
//   FOLDER   the unpacked packages, as scripts/make-places leaves them: build/places/unpacked
//
// Two sources give the expected country. "near" points lie 0.3 to 4 km beside a border of the package
// country-coder and have the country that the package's own code finds in its own borders. "apart" points
// lie 5 to 40 km from every border of both sources and have the country of Natural Earth (1:10 million).
// What the two dispute is left out of the second kind; see `disputed`.

import { readFileSync, readdirSync } from 'node:fs';
import { join } from 'node:path';
import vm from 'node:vm';

const folder = process.argv[2];
const find = prefix => join(folder, readdirSync(folder).find(name => name.startsWith(prefix)), 'package');
const coderFolder = find('rapideditor-country-coder');
const atlas = JSON.parse(readFileSync(join(find('world-atlas'), 'countries-10m.json')));
const borders = JSON.parse(readFileSync(join(coderFolder, 'src/data/borders.json'))).features;
const sandbox = {};
vm.runInNewContext(readFileSync(join(coderFolder, 'dist/country-coder.iife.js'), 'utf8') +
    ';globalThis.coder = typeof countryCoder !== "undefined" ? countryCoder : globalThis.countryCoder;', sandbox);
const coder = sandbox.coder;

// The code's own rule, with the codes of ISO 3166-1 only: what has another is in its country. Two areas
// are counted to the country that ISO 3166-2 counts them to.
const official = { AC: 'SH', TA: 'SH', CP: 'FR', DG: 'IO', CQ: 'GG', IC: 'ES', EA: 'ES', FX: 'FR' };
function codeOf(point) {
    const features = coder.featuresContaining(point).map(feature => feature.properties);
    if (features.some(area => area.nameEn === 'Crimea')) return 'UA';
    if (features.some(area => area.nameEn === 'Northern Cyprus')) return 'CY';
    const code = coder.iso1A2Code(point, { level: 'territory' });
    return official[code] ?? code;
}

// A fixed sequence, so that the file can be made again.
let state = 20261122;
function random() {
    state = (Math.imul(state, 1664525) + 1013904223) >>> 0;
    return state / 2 ** 32;
}

const radians = degrees => degrees * Math.PI / 180;
function kilometres(a, b) {
    const dy = radians(b[1] - a[1]) / 2, dx = radians(b[0] - a[0]) / 2;
    const h = Math.sin(dy) ** 2 + Math.cos(radians(a[1])) * Math.cos(radians(b[1])) * Math.sin(dx) ** 2;
    return 2 * 6371 * Math.asin(Math.min(1, Math.sqrt(h)));
}

// Sides of the outlines of a source, in cells of one degree.
class Sides {
    cells = new Map();
    add(a, b) {
        const steps = Math.max(1, Math.ceil(Math.hypot(b[0] - a[0], b[1] - a[1])));
        for (let i = 0; i <= steps; i++) {
            const key = Math.floor(a[0] + (b[0] - a[0]) * i / steps) + ' ' +
                Math.floor(a[1] + (b[1] - a[1]) * i / steps);
            if (!this.cells.has(key)) this.cells.set(key, new Set());
            this.cells.get(key).add([a, b]);
        }
    }
    // Kilometres to the nearest side, up to about a degree.
    distance(point) {
        let best = Infinity;
        const cosine = Math.cos(radians(point[1]));
        for (let x = -1; x <= 1; x++) {
            for (let y = -1; y <= 1; y++) {
                const key = (Math.floor(point[0]) + x) + ' ' + (Math.floor(point[1]) + y);
                for (const [a, b] of this.cells.get(key) ?? []) {
                    const ux = (b[0] - a[0]) * cosine, uy = b[1] - a[1];
                    const vx = (point[0] - a[0]) * cosine, vy = point[1] - a[1];
                    const t = Math.max(0, Math.min(1, (ux * vx + uy * vy) / (ux * ux + uy * uy || 1)));
                    best = Math.min(best, 111.2 * Math.hypot(vx - t * ux, vy - t * uy));
                }
            }
        }
        return best;
    }
}

const coderSides = new Sides();
const shared = new Map();
for (const feature of borders) {
    for (const polygon of feature.geometry?.coordinates ?? []) {
        for (const ring of polygon) {
            for (let i = 1; i < ring.length; i++) {
                coderSides.add(ring[i - 1], ring[i]);
                const key = [ring[i - 1].join(), ring[i].join()].sort().join(';');
                if (!shared.has(key)) shared.set(key, []);
                shared.get(key).push([ring[i - 1], ring[i]]);
            }
        }
    }
}

// Natural Earth as polygons with the code of ISO 3166-1.
const { scale, translate } = atlas.transform;
const arcs = atlas.arcs.map(arc => {
    let x = 0, y = 0;
    return arc.map(([dx, dy]) => [(x += dx) * scale[0] + translate[0], (y += dy) * scale[1] + translate[1]]);
});

// A line without the jumps from 180 degrees east to 180 degrees west.
function unrolled(points) {
    let shift = 0;
    return points.map(([x, y], i) => {
        if (i > 0 && Math.abs(x - points[i - 1][0]) > 180) shift += x < points[i - 1][0] ? 360 : -360;
        return [x + shift, y];
    });
}
const codeOfNumber = new Map(borders.map(({ properties: p }) => [p.iso1N3, p.iso1A2]));
const earthSides = new Sides();
const earth = [];
for (const geometry of atlas.objects.countries.geometries) {
    const polygons = geometry.type === 'Polygon' ? [geometry.arcs] : geometry.arcs;
    for (const polygon of polygons ?? []) {
        const rings = polygon.map(ring => unrolled(ring.flatMap(index => index >= 0 ? arcs[index] : [...arcs[~index]].reverse())));
        for (const ring of rings) for (let i = 1; i < ring.length; i++) earthSides.add(ring[i - 1], ring[i]);
        const xs = rings[0].map(p => p[0]), ys = rings[0].map(p => p[1]);
        const least = list => list.reduce((a, b) => Math.min(a, b)), most = list => list.reduce((a, b) => Math.max(a, b));
        earth.push({ code: codeOfNumber.get(geometry.id), name: geometry.properties.name, rings,
            box: [least(xs), least(ys), most(xs), most(ys)] });
    }
}
function earthCode(point) {
    for (const { code, rings, box } of earth) {
        if (point[0] < box[0] || point[0] > box[2] || point[1] < box[1] || point[1] > box[3]) continue;
        let inside = false;
        for (const ring of rings) {
            for (let i = 0, j = ring.length - 1; i < ring.length; j = i++) {
                const [x, y] = ring[i], [u, v] = ring[j];
                if ((y > point[1]) !== (v > point[1]) && point[0] < (u - x) * (point[1] - y) / (v - y) + x) inside = !inside;
            }
        }
        if (inside) return code;
    }
}

// Where the two sources draw the borders of different claims, or Natural Earth gives a territory without
// people the code of its country: box, and what it is.
const disputed = [
    [72, 32, 81, 37.5, 'Kashmir'], [91, 26, 98, 30, 'Arunachal Pradesh'], [-17.5, 20, -8, 28, 'Western Sahara'],
    [31.5, 43.5, 37, 47, 'Crimea'], [32, 34, 35, 36, 'Cyprus'], [42, 7.5, 50, 12, 'Somaliland'],
    [23, 3, 37, 24, 'Halaib, Abyei, Ilemi'], [34, 29, 36.5, 34, 'West Bank, Golan'], [39, 40, 48, 44, 'Caucasus'],
    [-62, 0, -54.6, 9, 'Guayana Esequiba'], [-54.6, 2, -51.4, 6, 'French Guiana, which Natural Earth has in France'],
];
const isDisputed = ([x, y]) => disputed.some(([west, south, east, north]) => x > west && x < east && y > south && y < north);

const lines = [];
const segments = [...shared.values()].filter(uses => uses.length > 1).map(uses => uses[0]);
const wanted = { near: 700, apart: 500 };
for (const kind of ['near', 'apart']) {
    for (let tries = 0; wanted[kind] > 0 && tries < 200000; tries++) {
        const [a, b] = segments[Math.floor(random() * segments.length)];
        const t = random(), turn = random() * 2 * Math.PI;
        const off = kind === 'near' ? 0.3 + 3.7 * random() : 5 + 35 * random();
        const y = a[1] + (b[1] - a[1]) * t;
        const point = [a[0] + (b[0] - a[0]) * t + Math.cos(turn) * off / 111.2 / Math.cos(radians(y)),
            y + Math.sin(turn) * off / 111.2].map(number => Number(number.toFixed(5)));
        if (Math.abs(point[0]) > 180 || Math.abs(point[1]) > 85) continue;
        const distance = coderSides.distance(point);
        let code;
        if (kind === 'near') {
            if (distance < 0.25 || distance > 4) continue;
            code = codeOf(point);
        } else {
            if (distance < 5 || distance > 40 || earthSides.distance(point) < 5 || isDisputed(point)) continue;
            code = earthCode(point);
        }
        if (!code || code.length !== 2) continue;
        lines.push(`${point[1]};${point[0]};${code};${kind}`);
        wanted[kind]--;
    }
}
console.log('# Points near borders and their countries, made by make_border_points.mjs from country-coder 5.6.1 (ISC)');
console.log('# and Natural Earth as in world-atlas 2.0.2 (public domain). near: 0.3 to 4 km from a border, expected');
console.log("# from country-coder's own code; apart: 5 to 40 km from all borders, expected from Natural Earth.");
console.log('#\n# latitude;longitude;country;kind');
console.log(lines.join('\n'));
